#include "AmbrelRecoveryApp/Foundation/RecoveryAppCopy.h"

#include <algorithm>
#include <array>

namespace {

/// English comes first: it is the fallback. Each text below is given in all of these languages, in this order.
constexpr std::array<QStringView, 14> languages = {u"en", u"es", u"pt", u"de", u"fr", u"it",      u"ja",
                                                   u"ko", u"ru", u"pl", u"tr", u"ar", u"zh-Hans", u"zh-Hant"};

template<std::size_t count>
QString text(const icu::Locale& locale, const QStringView (&texts)[count]) {
    static_assert(count == languages.size());
    const auto* const language = std::ranges::find(languages, RecoveryAppCopy::languageIdentifier(locale));
    return texts[language == languages.end() ? 0 : language - languages.begin()].toString();
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
    return text(locale, {u"No account", u"Sin cuenta", u"Sem conta", u"Kein Konto", u"Sans compte", u"Senza account",
                         u"アカウント不要", u"계정 불필요", u"Без аккаунта", u"Bez konta", u"Hesap gerekmez",
                         u"من دون حساب", u"无需账户", u"無需帳戶"});
}

QString RecoveryAppCopy::readOnly(const icu::Locale& locale) {
    return text(locale, {u"Read-only", u"Solo lectura", u"Somente leitura", u"Schreibgeschützt", u"Lecture seule",
                         u"Sola lettura", u"読み取り専用", u"읽기 전용", u"Только чтение", u"Tylko do odczytu",
                         u"Salt okunur", u"للقراءة فقط", u"只读", u"唯讀"});
}

QString RecoveryAppCopy::okay(const icu::Locale& locale) {
    return text(locale, {u"OK", u"OK", u"OK", u"OK", u"OK", u"OK", u"OK", u"확인", u"Хорошо", u"OK", u"Tamam", u"حسنًا",
                         u"好", u"好"});
}

QString RecoveryAppCopy::providerPreparationTitle(const icu::Locale& locale) {
    return text(locale,
                {u"Preparing the backup", u"Preparando la copia de seguridad", u"Preparando o backup",
                 u"Backup wird vorbereitet", u"Préparation de la sauvegarde", u"Preparazione del backup",
                 u"バックアップを準備中", u"백업 준비 중", u"Подготовка резервной копии", u"Przygotowywanie backupu",
                 u"Yedekleme hazırlanıyor", u"جارٍ تجهيز النسخة الاحتياطية", u"正在准备备份", u"正在準備備份"});
}

QString RecoveryAppCopy::providerPreparation(const icu::Locale& locale) {
    return text(locale,
                {u"If the backup is in iCloud Drive, Files may need time to download it. Keep this Mac online; "
                 u"cancelling does not change the backup.",
                 u"Si la copia está en iCloud Drive, Archivos puede necesitar tiempo para descargarla. Mantén el Mac "
                 u"conectado a internet; puedes cancelar sin modificar la copia.",
                 u"Se o backup estiver no iCloud Drive, o app Arquivos pode precisar de tempo para baixá-lo. Mantenha "
                 u"o Mac conectado; você pode cancelar sem alterar o backup.",
                 u"Liegt das Backup in iCloud Drive, benötigt „Dateien“ möglicherweise Zeit zum Laden. Lass den Mac "
                 u"online; ein Abbruch verändert das Backup nicht.",
                 u"Si la sauvegarde est dans iCloud Drive, Fichiers peut avoir besoin de temps pour la télécharger. "
                 u"Gardez le Mac en ligne ; l’annulation ne modifie pas la sauvegarde.",
                 u"Se il backup è su iCloud Drive, File potrebbe impiegare del tempo per scaricarlo. Mantieni il Mac "
                 u"online; l’annullamento non modifica il backup.",
                 u"バックアップがiCloud "
                 u"Driveにある場合、「ファイル」によるダウンロードに時間がかかることがあります。Macをオンラインにしてく"
                 u"ださい。キャンセルしてもバックアップは変更されません。",
                 u"백업이 iCloud Drive에 있으면 파일 앱에서 다운로드하는 데 시간이 걸릴 수 있습니다. Mac을 온라인 "
                 u"상태로 유지하십시오. 취소해도 백업은 변경되지 않습니다.",
                 u"Если копия находится в iCloud Drive, приложению «Файлы» может понадобиться время, чтобы скачать её. "
                 u"Не отключайте Mac от интернета; отмена не изменит резервную копию.",
                 u"Jeśli backup jest w iCloud Drive, aplikacja Pliki może potrzebować czasu na jego pobranie. Pozostaw "
                 u"Maca online; anulowanie nie zmieni backupu.",
                 u"Yedekleme iCloud Drive’daysa Dosyalar’ın indirmesi zaman alabilir. Mac’i internete bağlı tutun; "
                 u"iptal etmek yedeklemeyi değiştirmez.",
                 u"إذا كانت النسخة الاحتياطية في iCloud Drive، فقد يحتاج تطبيق «الملفات» إلى وقت لتنزيلها. أبقِ Mac "
                 u"متصلاً بالإنترنت؛ لا يؤدي الإلغاء إلى تغيير النسخة.",
                 u"如果备份位于 iCloud Drive，“文件”可能需要一些时间下载。请让 Mac 保持联网；取消不会更改备份。",
                 u"如果備份位於 iCloud Drive，「檔案」可能需要一些時間下載。請讓 Mac 保持連線；取消不會更改備份。"});
}

QString RecoveryAppCopy::showInFinder(const icu::Locale& locale) {
    return text(locale, {u"Show in Finder", u"Mostrar en Finder", u"Mostrar no Finder", u"Im Finder anzeigen",
                         u"Afficher dans le Finder", u"Mostra nel Finder", u"Finderで表示", u"Finder에서 보기",
                         u"Показать в Finder", u"Pokaż w Finderze", u"Finder’da Göster", u"إظهار في Finder",
                         u"在 Finder 中显示", u"在 Finder 中顯示"});
}

QString RecoveryAppCopy::capsLock(const icu::Locale& locale) {
    return text(locale, {u"Caps Lock is on", u"Bloq Mayús activado", u"Caps Lock ativado", u"Feststelltaste ist aktiv",
                         u"Verr. Maj. activé", u"Bloc Maiusc attivo", u"Caps Lockがオンです", u"Caps Lock이 켜져 있음",
                         u"Включён Caps Lock", u"Caps Lock jest włączony", u"Caps Lock açık", u"مفتاح Caps Lock مفعّل",
                         u"大写锁定已打开", u"大寫鎖定已開啟"});
}

QString RecoveryAppCopy::stepCompleted(const icu::Locale& locale) {
    return text(locale,
                {u"Completed", u"Completado", u"Concluído", u"Abgeschlossen", u"Terminée", u"Completato", u"完了済み",
                 u"완료됨", u"Завершено", u"Ukończono", u"Tamamlandı", u"اكتملت", u"已完成", u"已完成"});
}

QString RecoveryAppCopy::chooseOrDrop(const icu::Locale& locale) {
    return text(locale,
                {u"Choose the backup, or drop it here.", u"Elige la copia o arrástrala aquí.",
                 u"Escolha o backup ou arraste-o para cá.", u"Wähle das Backup oder zieh es hierher.",
                 u"Choisissez la sauvegarde ou déposez-la ici.", u"Scegli il backup o trascinalo qui.",
                 u"バックアップを選択するか、ここにドロップしてください。", u"백업을 선택하거나 여기로 드래그하십시오.",
                 u"Выберите резервную копию или перетащите её сюда.", u"Wybierz backup lub przeciągnij go tutaj.",
                 u"Yedeklemeyi seçin veya buraya sürükleyin.", u"اختر النسخة الاحتياطية أو اسحبها إلى هنا.",
                 u"请选取备份，或将其拖到此处。", u"請選擇備份，或將其拖到此處。"});
}

QString RecoveryAppCopy::noSnapshots(const icu::Locale& locale) {
    return text(
        locale,
        {u"This backup holds no snapshots, so there is nothing to export. Choose another package.",
         u"Esta copia no contiene instantáneas, así que no hay nada que exportar. Elige otro paquete.",
         u"Este backup não contém instantâneos, portanto não há nada para exportar. Escolha outro pacote.",
         u"Dieses Backup enthält keine Snapshots, es gibt also nichts zu exportieren. Wähle ein anderes Paket.",
         u"Cette sauvegarde ne contient aucun instantané, il n’y a donc rien à exporter. Choisissez une autre "
         u"sauvegarde.",
         u"Questo backup non contiene istantanee, quindi non c’è nulla da esportare. Scegli un altro backup.",
         u"このバックアップにはスナップショットが含まれていないため、書き出せるものがありません。別のバックアップを選択"
         u"してください。",
         u"이 백업에는 스냅샷이 없어 내보낼 항목이 없습니다. 다른 패키지를 선택하십시오.",
         u"В этой резервной копии нет моментальных снимков, поэтому экспортировать нечего. Выберите другой пакет.",
         u"Ten backup nie zawiera migawek, więc nie ma czego eksportować. Wybierz inny pakiet.",
         u"Bu yedeklemede anlık görüntü yok, bu nedenle dışa aktarılacak bir şey de yok. Başka bir paket seçin.",
         u"لا تحتوي هذه النسخة الاحتياطية على أي لقطات، فلا يوجد ما يمكن تصديره. اختر حزمة أخرى.",
         u"此备份不包含快照，因此没有可导出的内容。请选取其他备份包。",
         u"此備份不包含快照，因此沒有可匯出的內容。請選擇其他套件。"});
}
