#include "AmbrelRecoveryApp/Foundation/RecoveryAppCopy.h"

#include <algorithm>
#include <array>
#include <span>

namespace {

struct Row {
    QStringView language;
    QStringView text;
};

/// One text in every language: the English fallback and the translations.
struct Table {
    QStringView english;
    std::span<const Row> rows;
};

constexpr std::array noAccountRows = {
    Row{u"es", u"Sin cuenta"},     Row{u"pt", u"Sem conta"},     Row{u"de", u"Kein Konto"},
    Row{u"fr", u"Sans compte"},    Row{u"it", u"Senza account"}, Row{u"ja", u"アカウント不要"},
    Row{u"ko", u"계정 불필요"},    Row{u"ru", u"Без аккаунта"},  Row{u"pl", u"Bez konta"},
    Row{u"tr", u"Hesap gerekmez"}, Row{u"ar", u"من دون حساب"},   Row{u"zh-Hans", u"无需账户"},
    Row{u"zh-Hant", u"無需帳戶"},
};
constexpr Table noAccountTable = {u"No account", noAccountRows};

constexpr std::array readOnlyRows = {
    Row{u"es", u"Solo lectura"},  Row{u"pt", u"Somente leitura"}, Row{u"de", u"Schreibgeschützt"},
    Row{u"fr", u"Lecture seule"}, Row{u"it", u"Sola lettura"},    Row{u"ja", u"読み取り専用"},
    Row{u"ko", u"읽기 전용"},     Row{u"ru", u"Только чтение"},   Row{u"pl", u"Tylko do odczytu"},
    Row{u"tr", u"Salt okunur"},   Row{u"ar", u"للقراءة فقط"},     Row{u"zh-Hans", u"只读"},
    Row{u"zh-Hant", u"唯讀"},
};
constexpr Table readOnlyTable = {u"Read-only", readOnlyRows};

constexpr std::array okayRows = {
    Row{u"ja", u"OK"},   Row{u"ko", u"확인"},    Row{u"ru", u"Хорошо"},  Row{u"tr", u"Tamam"},
    Row{u"ar", u"حسنًا"}, Row{u"zh-Hans", u"好"}, Row{u"zh-Hant", u"好"},
};
constexpr Table okayTable = {u"OK", okayRows};

constexpr std::array providerPreparationTitleRows = {
    Row{u"es", u"Preparando la copia de seguridad"},
    Row{u"pt", u"Preparando o backup"},
    Row{u"de", u"Backup wird vorbereitet"},
    Row{u"fr", u"Préparation de la sauvegarde"},
    Row{u"it", u"Preparazione del backup"},
    Row{u"ja", u"バックアップを準備中"},
    Row{u"ko", u"백업 준비 중"},
    Row{u"ru", u"Подготовка резервной копии"},
    Row{u"pl", u"Przygotowywanie backupu"},
    Row{u"tr", u"Yedekleme hazırlanıyor"},
    Row{u"ar", u"جارٍ تجهيز النسخة الاحتياطية"},
    Row{u"zh-Hans", u"正在准备备份"},
    Row{u"zh-Hant", u"正在準備備份"},
};
constexpr Table providerPreparationTitleTable = {u"Preparing the backup", providerPreparationTitleRows};

constexpr std::array providerPreparationRows = {
    Row{u"es", u"Si la copia está en iCloud Drive, Archivos puede necesitar tiempo para descargarla. Mantén el Mac "
               u"conectado a internet; puedes cancelar sin modificar la copia."},
    Row{u"pt", u"Se o backup estiver no iCloud Drive, o app Arquivos pode precisar de tempo para baixá-lo. Mantenha o "
               u"Mac conectado; você pode cancelar sem alterar o backup."},
    Row{u"de", u"Liegt das Backup in iCloud Drive, benötigt „Dateien“ möglicherweise Zeit zum Laden. Lass den Mac "
               u"online; ein Abbruch verändert das Backup nicht."},
    Row{u"fr", u"Si la sauvegarde est dans iCloud Drive, Fichiers peut avoir besoin de temps pour la télécharger. "
               u"Gardez le Mac en ligne ; l’annulation ne modifie pas la sauvegarde."},
    Row{u"it", u"Se il backup è su iCloud Drive, File potrebbe impiegare del tempo per scaricarlo. Mantieni il Mac "
               u"online; l’annullamento non modifica il backup."},
    Row{u"ja", u"バックアップがiCloud "
               u"Driveにある場合、「ファイル」によるダウンロードに時間がかかることがあります。Macをオンラインにしてくだ"
               u"さい。キャンセルしてもバックアップは変更されません。"},
    Row{u"ko", u"백업이 iCloud Drive에 있으면 파일 앱에서 다운로드하는 데 시간이 걸릴 수 있습니다. Mac을 온라인 상태로 "
               u"유지하십시오. 취소해도 백업은 변경되지 않습니다."},
    Row{u"ru", u"Если копия находится в iCloud Drive, приложению «Файлы» может понадобиться время, чтобы скачать её. "
               u"Не отключайте Mac от интернета; отмена не изменит резервную копию."},
    Row{u"pl", u"Jeśli backup jest w iCloud Drive, aplikacja Pliki może potrzebować czasu na jego pobranie. Pozostaw "
               u"Maca online; anulowanie nie zmieni backupu."},
    Row{u"tr", u"Yedekleme iCloud Drive’daysa Dosyalar’ın indirmesi zaman alabilir. Mac’i internete bağlı tutun; iptal "
               u"etmek yedeklemeyi değiştirmez."},
    Row{u"ar", u"إذا كانت النسخة الاحتياطية في iCloud Drive، فقد يحتاج تطبيق «الملفات» إلى وقت لتنزيلها. أبقِ Mac متصلاً "
               u"بالإنترنت؛ لا يؤدي الإلغاء إلى تغيير النسخة."},
    Row{u"zh-Hans", u"如果备份位于 iCloud Drive，“文件”可能需要一些时间下载。请让 Mac 保持联网；取消不会更改备份。"},
    Row{u"zh-Hant", u"如果備份位於 iCloud Drive，「檔案」可能需要一些時間下載。請讓 Mac 保持連線；取消不會更改備份。"},
};
constexpr Table providerPreparationTable = {u"If the backup is in iCloud Drive, Files may need time to download it. "
                                            u"Keep this Mac online; cancelling does not change the backup.",
                                            providerPreparationRows};

constexpr std::array showInFinderRows = {
    Row{u"es", u"Mostrar en Finder"},       Row{u"pt", u"Mostrar no Finder"}, Row{u"de", u"Im Finder anzeigen"},
    Row{u"fr", u"Afficher dans le Finder"}, Row{u"it", u"Mostra nel Finder"}, Row{u"ja", u"Finderで表示"},
    Row{u"ko", u"Finder에서 보기"},         Row{u"ru", u"Показать в Finder"}, Row{u"pl", u"Pokaż w Finderze"},
    Row{u"tr", u"Finder’da Göster"},        Row{u"ar", u"إظهار في Finder"},   Row{u"zh-Hans", u"在 Finder 中显示"},
    Row{u"zh-Hant", u"在 Finder 中顯示"},
};
constexpr Table showInFinderTable = {u"Show in Finder", showInFinderRows};

constexpr std::array capsLockRows = {
    Row{u"es", u"Bloq Mayús activado"},   Row{u"pt", u"Caps Lock ativado"},    Row{u"de", u"Feststelltaste ist aktiv"},
    Row{u"fr", u"Verr. Maj. activé"},     Row{u"it", u"Bloc Maiusc attivo"},   Row{u"ja", u"Caps Lockがオンです"},
    Row{u"ko", u"Caps Lock이 켜져 있음"}, Row{u"ru", u"Включён Caps Lock"},    Row{u"pl", u"Caps Lock jest włączony"},
    Row{u"tr", u"Caps Lock açık"},        Row{u"ar", u"مفتاح Caps Lock مفعّل"}, Row{u"zh-Hans", u"大写锁定已打开"},
    Row{u"zh-Hant", u"大寫鎖定已開啟"},
};
constexpr Table capsLockTable = {u"Caps Lock is on", capsLockRows};

constexpr std::array stepCompletedRows = {
    Row{u"es", u"Completado"},  Row{u"pt", u"Concluído"},  Row{u"de", u"Abgeschlossen"}, Row{u"fr", u"Terminée"},
    Row{u"it", u"Completato"},  Row{u"ja", u"完了済み"},   Row{u"ko", u"완료됨"},        Row{u"ru", u"Завершено"},
    Row{u"pl", u"Ukończono"},   Row{u"tr", u"Tamamlandı"}, Row{u"ar", u"اكتملت"},        Row{u"zh-Hans", u"已完成"},
    Row{u"zh-Hant", u"已完成"},
};
constexpr Table stepCompletedTable = {u"Completed", stepCompletedRows};

constexpr std::array chooseOrDropRows = {
    Row{u"es", u"Elige la copia o arrástrala aquí."},
    Row{u"pt", u"Escolha o backup ou arraste-o para cá."},
    Row{u"de", u"Wähle das Backup oder zieh es hierher."},
    Row{u"fr", u"Choisissez la sauvegarde ou déposez-la ici."},
    Row{u"it", u"Scegli il backup o trascinalo qui."},
    Row{u"ja", u"バックアップを選択するか、ここにドロップしてください。"},
    Row{u"ko", u"백업을 선택하거나 여기로 드래그하십시오."},
    Row{u"ru", u"Выберите резервную копию или перетащите её сюда."},
    Row{u"pl", u"Wybierz backup lub przeciągnij go tutaj."},
    Row{u"tr", u"Yedeklemeyi seçin veya buraya sürükleyin."},
    Row{u"ar", u"اختر النسخة الاحتياطية أو اسحبها إلى هنا."},
    Row{u"zh-Hans", u"请选取备份，或将其拖到此处。"},
    Row{u"zh-Hant", u"請選擇備份，或將其拖到此處。"},
};
constexpr Table chooseOrDropTable = {u"Choose the backup, or drop it here.", chooseOrDropRows};

constexpr std::array noSnapshotsRows = {
    Row{u"es", u"Esta copia no contiene instantáneas, así que no hay nada que exportar. Elige otro paquete."},
    Row{u"pt", u"Este backup não contém instantâneos, portanto não há nada para exportar. Escolha outro pacote."},
    Row{u"de", u"Dieses Backup enthält keine Snapshots, es gibt also nichts zu exportieren. Wähle ein anderes Paket."},
    Row{u"fr", u"Cette sauvegarde ne contient aucun instantané, il n’y a donc rien à exporter. Choisissez une autre "
               u"sauvegarde."},
    Row{u"it", u"Questo backup non contiene istantanee, quindi non c’è nulla da esportare. Scegli un altro backup."},
    Row{u"ja", u"このバックアップにはスナップショットが含まれていないため、書き出せるものがありません。別のバックアップ"
               u"を選択してください。"},
    Row{u"ko", u"이 백업에는 스냅샷이 없어 내보낼 항목이 없습니다. 다른 패키지를 선택하십시오."},
    Row{u"ru",
        u"В этой резервной копии нет моментальных снимков, поэтому экспортировать нечего. Выберите другой пакет."},
    Row{u"pl", u"Ten backup nie zawiera migawek, więc nie ma czego eksportować. Wybierz inny pakiet."},
    Row{u"tr", u"Bu yedeklemede anlık görüntü yok, bu nedenle dışa aktarılacak bir şey de yok. Başka bir paket seçin."},
    Row{u"ar", u"لا تحتوي هذه النسخة الاحتياطية على أي لقطات، فلا يوجد ما يمكن تصديره. اختر حزمة أخرى."},
    Row{u"zh-Hans", u"此备份不包含快照，因此没有可导出的内容。请选取其他备份包。"},
    Row{u"zh-Hant", u"此備份不包含快照，因此沒有可匯出的內容。請選擇其他套件。"},
};
constexpr Table noSnapshotsTable = {
    u"This backup holds no snapshots, so there is nothing to export. Choose another package.", noSnapshotsRows};

QString text(const Table& table, const icu::Locale& locale) {
    const QString identifier = RecoveryAppCopy::languageIdentifier(locale);
    const auto row = std::ranges::find(table.rows, identifier, &Row::language);
    return (row == table.rows.end() ? table.english : row->text).toString();
}

} // namespace

QString RecoveryAppCopy::languageIdentifier(const icu::Locale& locale) {
    const QString identifier = QString::fromLatin1(locale.getName()).toLower();
    if (identifier.contains(u"hant")) {
        return QStringLiteral("zh-Hant");
    }
    if (identifier.contains(u"hans")) {
        return QStringLiteral("zh-Hans");
    }
    const QString language = QString::fromLatin1(locale.getLanguage());
    return language.isEmpty() ? QStringLiteral("en") : language;
}

QString RecoveryAppCopy::noAccount(const icu::Locale& locale) {
    return text(noAccountTable, locale);
}

QString RecoveryAppCopy::readOnly(const icu::Locale& locale) {
    return text(readOnlyTable, locale);
}

QString RecoveryAppCopy::okay(const icu::Locale& locale) {
    return text(okayTable, locale);
}

QString RecoveryAppCopy::providerPreparationTitle(const icu::Locale& locale) {
    return text(providerPreparationTitleTable, locale);
}

QString RecoveryAppCopy::providerPreparation(const icu::Locale& locale) {
    return text(providerPreparationTable, locale);
}

QString RecoveryAppCopy::showInFinder(const icu::Locale& locale) {
    return text(showInFinderTable, locale);
}

QString RecoveryAppCopy::capsLock(const icu::Locale& locale) {
    return text(capsLockTable, locale);
}

QString RecoveryAppCopy::stepCompleted(const icu::Locale& locale) {
    return text(stepCompletedTable, locale);
}

QString RecoveryAppCopy::chooseOrDrop(const icu::Locale& locale) {
    return text(chooseOrDropTable, locale);
}

QString RecoveryAppCopy::noSnapshots(const icu::Locale& locale) {
    return text(noSnapshotsTable, locale);
}
