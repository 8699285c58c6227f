// A minimal Qt Widgets program for comparison: a window with forty labels and a style sheet.

#include <QApplication>
#include <QGridLayout>
#include <QLabel>

int main(int argumentCount, char** arguments) {
    QApplication application(argumentCount, arguments);
    QWidget window;
    window.setStyleSheet(
        QStringLiteral("QWidget { background: #131110; } QLabel { color: #f0e8de; font-size: 13px; }"));
    auto* const layout = new QGridLayout(&window);
    for (int place = 0; place < 40; ++place) {
        layout->addWidget(new QLabel(QStringLiteral("Label number %1").arg(place + 1)), place / 4, place % 4);
    }
    window.resize(980, 720);
    window.show();
    return QApplication::exec();
}
