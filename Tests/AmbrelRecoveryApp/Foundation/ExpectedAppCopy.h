#pragma once

#include <QStringView>

#include <array>

/// The application's own texts as they are meant to be read, language by language; English stands first.
struct ExpectedAppCopy {
    const char* locale;
    QStringView noAccount;
    QStringView readOnly;
    QStringView okay;
    QStringView providerPreparationTitle;
    QStringView providerPreparation;
    QStringView showInFinder;
    QStringView capsLock;
    QStringView stepCompleted;
    QStringView chooseOrDrop;
    QStringView noSnapshots;
};

inline constexpr std::array expectedAppCopy = {
    ExpectedAppCopy{
        .locale = "en",
        .noAccount = u"No account",
        .readOnly = u"Read-only",
        .okay = u"OK",
        .providerPreparationTitle = u"Preparing the backup",
        .providerPreparation = u"If the backup is in iCloud Drive, Files may need time to download it. Keep this Mac "
                               u"online; cancelling does not change the backup.",
        .showInFinder = u"Show in Finder",
        .capsLock = u"Caps Lock is on",
        .stepCompleted = u"Completed",
        .chooseOrDrop = u"Choose the backup, or drop it here.",
        .noSnapshots = u"This backup holds no snapshots, so there is nothing to export. Choose another package.",
    },
    ExpectedAppCopy{
        .locale = "es",
        .noAccount = u"Sin cuenta",
        .readOnly = u"Solo lectura",
        .okay = u"OK",
        .providerPreparationTitle = u"Preparando la copia de seguridad",
        .providerPreparation = u"Si la copia está en iCloud Drive, Archivos puede necesitar tiempo para descargarla. "
                               u"Mantén el Mac conectado a internet; puedes cancelar sin modificar la copia.",
        .showInFinder = u"Mostrar en Finder",
        .capsLock = u"Bloq Mayús activado",
        .stepCompleted = u"Completado",
        .chooseOrDrop = u"Elige la copia o arrástrala aquí.",
        .noSnapshots = u"Esta copia no contiene instantáneas, así que no hay nada que exportar. Elige otro paquete.",
    },
    ExpectedAppCopy{
        .locale = "pt",
        .noAccount = u"Sem conta",
        .readOnly = u"Somente leitura",
        .okay = u"OK",
        .providerPreparationTitle = u"Preparando o backup",
        .providerPreparation = u"Se o backup estiver no iCloud Drive, o app Arquivos pode precisar de tempo para "
                               u"baixá-lo. Mantenha o Mac conectado; você pode cancelar sem alterar o backup.",
        .showInFinder = u"Mostrar no Finder",
        .capsLock = u"Caps Lock ativado",
        .stepCompleted = u"Concluída",
        .chooseOrDrop = u"Escolha o backup ou arraste-o para cá.",
        .noSnapshots =
            u"Este backup não contém instantâneos, portanto não há nada para exportar. Escolha outro pacote.",
    },
    ExpectedAppCopy{
        .locale = "de",
        .noAccount = u"Kein Konto",
        .readOnly = u"Schreibgeschützt",
        .okay = u"OK",
        .providerPreparationTitle = u"Backup wird vorbereitet",
        .providerPreparation = u"Liegt das Backup in iCloud Drive, benötigt „Dateien“ möglicherweise Zeit zum Laden. "
                               u"Lass den Mac online; ein Abbruch verändert das Backup nicht.",
        .showInFinder = u"Im Finder anzeigen",
        .capsLock = u"Feststelltaste ist aktiv",
        .stepCompleted = u"Abgeschlossen",
        .chooseOrDrop = u"Wähle das Backup oder zieh es hierher.",
        .noSnapshots =
            u"Dieses Backup enthält keine Snapshots, es gibt also nichts zu exportieren. Wähle ein anderes Paket.",
    },
    ExpectedAppCopy{
        .locale = "fr",
        .noAccount = u"Sans compte",
        .readOnly = u"Lecture seule",
        .okay = u"OK",
        .providerPreparationTitle = u"Préparation de la sauvegarde",
        .providerPreparation = u"Si la sauvegarde est dans iCloud Drive, Fichiers peut avoir besoin de temps pour la "
                               u"télécharger. Gardez le Mac en ligne ; l’annulation ne modifie pas la sauvegarde.",
        .showInFinder = u"Afficher dans le Finder",
        .capsLock = u"Verr. Maj. activé",
        .stepCompleted = u"Terminée",
        .chooseOrDrop = u"Choisissez la sauvegarde ou déposez-la ici.",
        .noSnapshots = u"Cette sauvegarde ne contient aucun instantané, il n’y a donc rien à exporter. Choisissez un "
                       u"autre paquet.",
    },
    ExpectedAppCopy{
        .locale = "it",
        .noAccount = u"Senza account",
        .readOnly = u"Sola lettura",
        .okay = u"OK",
        .providerPreparationTitle = u"Preparazione del backup",
        .providerPreparation = u"Se il backup è su iCloud Drive, File potrebbe impiegare del tempo per scaricarlo. "
                               u"Mantieni il Mac online; l’annullamento non modifica il backup.",
        .showInFinder = u"Mostra nel Finder",
        .capsLock = u"Bloc Maiusc attivo",
        .stepCompleted = u"Completato",
        .chooseOrDrop = u"Scegli il backup o trascinalo qui.",
        .noSnapshots =
            u"Questo backup non contiene istantanee, quindi non c’è nulla da esportare. Scegli un altro pacchetto.",
    },
    ExpectedAppCopy{
        .locale = "ja",
        .noAccount = u"アカウント不要",
        .readOnly = u"読み取り専用",
        .okay = u"OK",
        .providerPreparationTitle = u"バックアップを準備中",
        .providerPreparation = u"バックアップがiCloud "
                               u"Driveにある場合、「ファイル」によるダウンロードに時間がかかることがあります。Macをオン"
                               u"ラインにしてください。キャンセルしてもバックアップは変更されません。",
        .showInFinder = u"Finderで表示",
        .capsLock = u"Caps Lockがオンです",
        .stepCompleted = u"完了済み",
        .chooseOrDrop = u"バックアップを選択するか、ここにドロップしてください。",
        .noSnapshots = u"このバックアップにはスナップショットが含まれていないため、書き出せるものがありません。別のパッ"
                       u"ケージを選択してください。",
    },
    ExpectedAppCopy{
        .locale = "ko",
        .noAccount = u"계정 불필요",
        .readOnly = u"읽기 전용",
        .okay = u"확인",
        .providerPreparationTitle = u"백업 준비 중",
        .providerPreparation = u"백업이 iCloud Drive에 있으면 파일 앱에서 다운로드하는 데 시간이 걸릴 수 있습니다. "
                               u"Mac을 온라인 상태로 유지하십시오. 취소해도 백업은 변경되지 않습니다.",
        .showInFinder = u"Finder에서 보기",
        .capsLock = u"Caps Lock이 켜져 있음",
        .stepCompleted = u"완료됨",
        .chooseOrDrop = u"백업을 선택하거나 여기로 드래그하십시오.",
        .noSnapshots = u"이 백업에는 스냅샷이 없어 내보낼 항목이 없습니다. 다른 패키지를 선택하십시오.",
    },
    ExpectedAppCopy{
        .locale = "ru",
        .noAccount = u"Без аккаунта",
        .readOnly = u"Только чтение",
        .okay = u"Хорошо",
        .providerPreparationTitle = u"Подготовка резервной копии",
        .providerPreparation = u"Если копия находится в iCloud Drive, приложению «Файлы» может понадобиться время, "
                               u"чтобы скачать её. Не отключайте Mac от интернета; отмена не изменит резервную копию.",
        .showInFinder = u"Показать в Finder",
        .capsLock = u"Включён Caps Lock",
        .stepCompleted = u"Завершено",
        .chooseOrDrop = u"Выберите резервную копию или перетащите её сюда.",
        .noSnapshots =
            u"В этой резервной копии нет моментальных снимков, поэтому экспортировать нечего. Выберите другой пакет.",
    },
    ExpectedAppCopy{
        .locale = "pl",
        .noAccount = u"Bez konta",
        .readOnly = u"Tylko do odczytu",
        .okay = u"OK",
        .providerPreparationTitle = u"Przygotowywanie backupu",
        .providerPreparation = u"Jeśli backup jest w iCloud Drive, aplikacja Pliki może potrzebować czasu na jego "
                               u"pobranie. Pozostaw Maca online; anulowanie nie zmieni backupu.",
        .showInFinder = u"Pokaż w Finderze",
        .capsLock = u"Caps Lock jest włączony",
        .stepCompleted = u"Ukończono",
        .chooseOrDrop = u"Wybierz backup lub przeciągnij go tutaj.",
        .noSnapshots = u"Ten backup nie zawiera migawek, więc nie ma czego eksportować. Wybierz inny pakiet.",
    },
    ExpectedAppCopy{
        .locale = "tr",
        .noAccount = u"Hesap gerekmez",
        .readOnly = u"Salt okunur",
        .okay = u"Tamam",
        .providerPreparationTitle = u"Yedekleme hazırlanıyor",
        .providerPreparation = u"Yedekleme iCloud Drive’daysa Dosyalar’ın indirmesi zaman alabilir. Mac’i internete "
                               u"bağlı tutun; iptal etmek yedeklemeyi değiştirmez.",
        .showInFinder = u"Finder’da Göster",
        .capsLock = u"Caps Lock açık",
        .stepCompleted = u"Tamamlandı",
        .chooseOrDrop = u"Yedeklemeyi seçin veya buraya sürükleyin.",
        .noSnapshots =
            u"Bu yedeklemede anlık görüntü yok, bu nedenle dışa aktarılacak bir şey de yok. Başka bir paket seçin.",
    },
    ExpectedAppCopy{
        .locale = "ar",
        .noAccount = u"من دون حساب",
        .readOnly = u"للقراءة فقط",
        .okay = u"حسنًا",
        .providerPreparationTitle = u"جارٍ تجهيز النسخة الاحتياطية",
        .providerPreparation = u"إذا كانت النسخة الاحتياطية في iCloud Drive، فقد يحتاج تطبيق «الملفات» إلى وقت "
                               u"لتنزيلها. أبقِ Mac متصلاً بالإنترنت؛ لا يؤدي الإلغاء إلى تغيير النسخة.",
        .showInFinder = u"إظهار في Finder",
        .capsLock = u"مفتاح Caps Lock مفعّل",
        .stepCompleted = u"اكتملت",
        .chooseOrDrop = u"اختر النسخة الاحتياطية أو اسحبها إلى هنا.",
        .noSnapshots = u"لا تحتوي هذه النسخة الاحتياطية على أي لقطات، فلا يوجد ما يمكن تصديره. اختر حزمة أخرى.",
    },
    ExpectedAppCopy{
        .locale = "zh-Hans",
        .noAccount = u"无需账户",
        .readOnly = u"只读",
        .okay = u"好",
        .providerPreparationTitle = u"正在准备备份",
        .providerPreparation =
            u"如果备份位于 iCloud Drive，“文件”可能需要一些时间下载。请让 Mac 保持联网；取消不会更改备份。",
        .showInFinder = u"在 Finder 中显示",
        .capsLock = u"大写锁定已打开",
        .stepCompleted = u"已完成",
        .chooseOrDrop = u"请选取备份，或将其拖到此处。",
        .noSnapshots = u"此备份不包含快照，因此没有可导出的内容。请选取其他备份包。",
    },
    ExpectedAppCopy{
        .locale = "zh-Hant",
        .noAccount = u"無需帳戶",
        .readOnly = u"唯讀",
        .okay = u"好",
        .providerPreparationTitle = u"正在準備備份",
        .providerPreparation =
            u"如果備份位於 iCloud Drive，「檔案」可能需要一些時間下載。請讓 Mac 保持連線；取消不會更改備份。",
        .showInFinder = u"在 Finder 中顯示",
        .capsLock = u"大寫鎖定已開啟",
        .stepCompleted = u"已完成",
        .chooseOrDrop = u"請選擇備份，或將其拖到此處。",
        .noSnapshots = u"此備份不包含快照，因此沒有可匯出的內容。請選擇其他套件。",
    },
};
