#include "AmbrelRecoveryApp/Platform/FolderNameDelegate.h"

#include <QFile>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QLineEdit>

#include <climits>

namespace {

bool canBeNamed(const QFileInfo& folder, const QString& name) {
    const bool isName = !name.isEmpty() && name != u"." && name != u".." && !name.contains(u'/') &&
                        !name.contains(QChar::Null) && QFile::encodeName(name).size() <= NAME_MAX;
    const QString path = folder.path() + u'/' + name;
    return isName && !QFileInfo::exists(path) && !QFileInfo(path).isSymLink() && QFileInfo(folder.path()).isWritable();
}

} // namespace

void FolderNameDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const {
    const auto* const field = qobject_cast<QLineEdit*>(editor);
    const QFileInfo folder(index.data(QFileSystemModel::FilePathRole).toString());
    if (field && canBeNamed(folder, field->text())) {
        QStyledItemDelegate::setModelData(editor, model, index);
    }
}
