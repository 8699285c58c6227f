#include "AmbrelRecoveryApp/FilePanels/PanelTexts.h"

#include "AmbrelLocalization/AmbrelStrings.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

using Texts = std::array<QStringView, PanelTexts::textCount>;

struct Language {
    QStringView identifier;
    /// In the order of `PanelTexts::Text`.
    Texts texts;
};

// clang-format off
constexpr std::array languages = {
    Language{u"en", {
        u"Locations", u"Home", u"Computer", u"Enclosing folder", u"Date modified", u"Create",
        u"An item with this name already exists.", u"The folder could not be created.",
        u"This folder cannot be opened", u"Loading…",
        u"Cut", u"Copy", u"Paste", u"Select all"}},
    Language{u"es", {
        u"Ubicaciones", u"Carpeta personal", u"Equipo", u"Carpeta contenedora", u"Fecha de modificación", u"Crear",
        u"Ya existe un elemento con este nombre.", u"No se ha podido crear la carpeta.",
        u"No se puede abrir esta carpeta", u"Cargando…",
        u"Cortar", u"Copiar", u"Pegar", u"Seleccionar todo"}},
    Language{u"pt-BR", {
        u"Locais", u"Pasta pessoal", u"Computador", u"Pasta superior", u"Data de modificação", u"Criar",
        u"Já existe um item com este nome.", u"Não foi possível criar a pasta.",
        u"Não é possível abrir esta pasta", u"Carregando…",
        u"Recortar", u"Copiar", u"Colar", u"Selecionar tudo"}},
    Language{u"de", {
        u"Orte", u"Persönlicher Ordner", u"Computer", u"Übergeordneter Ordner", u"Änderungsdatum", u"Erstellen",
        u"Ein Objekt mit diesem Namen ist bereits vorhanden.", u"Der Ordner konnte nicht erstellt werden.",
        u"Dieser Ordner kann nicht geöffnet werden", u"Wird geladen\u00A0…",
        u"Ausschneiden", u"Kopieren", u"Einfügen", u"Alles auswählen"}},
    Language{u"fr", {
        u"Emplacements", u"Dossier personnel", u"Ordinateur", u"Dossier parent", u"Date de modification", u"Créer",
        u"Un élément portant ce nom existe déjà.", u"Le dossier n’a pas pu être créé.",
        u"Impossible d’ouvrir ce dossier", u"Chargement…",
        u"Couper", u"Copier", u"Coller", u"Tout sélectionner"}},
    Language{u"it", {
        u"Posizioni", u"Cartella personale", u"Computer", u"Cartella superiore", u"Data di modifica", u"Crea",
        u"Esiste già un elemento con questo nome.", u"Impossibile creare la cartella.",
        u"Impossibile aprire questa cartella", u"Caricamento…",
        u"Taglia", u"Copia", u"Incolla", u"Seleziona tutto"}},
    Language{u"ja", {
        u"場所", u"ホーム", u"コンピュータ", u"上の階層のフォルダ", u"変更日", u"作成",
        u"同じ名前の項目がすでにあります。", u"フォルダを作成できませんでした。",
        u"このフォルダを開けません", u"ロード中…",
        u"カット", u"コピー", u"ペースト", u"すべてを選択"}},
    Language{u"ko", {
        u"위치", u"홈", u"컴퓨터", u"상위 폴더", u"수정일", u"생성",
        u"같은 이름의 항목이 이미 있습니다.", u"폴더를 생성할 수 없습니다.",
        u"이 폴더를 열 수 없음", u"로드 중…",
        u"오려두기", u"복사하기", u"붙여넣기", u"모두 선택"}},
    Language{u"ru", {
        u"Места", u"Домашняя папка", u"Компьютер", u"Родительская папка", u"Дата изменения", u"Создать",
        u"Объект с таким именем уже существует.", u"Не удалось создать папку.",
        u"Не удаётся открыть эту папку", u"Загрузка…",
        u"Вырезать", u"Скопировать", u"Вставить", u"Выбрать всё"}},
    Language{u"pl", {
        u"Miejsca", u"Katalog domowy", u"Komputer", u"Folder nadrzędny", u"Data modyfikacji", u"Utwórz",
        u"Element o tej nazwie już istnieje.", u"Nie udało się utworzyć folderu.",
        u"Nie można otworzyć tego folderu", u"Wczytywanie…",
        u"Wytnij", u"Kopiuj", u"Wklej", u"Zaznacz wszystko"}},
    Language{u"tr", {
        u"Konumlar", u"Ana klasör", u"Bilgisayar", u"Üst klasör", u"Değiştirilme tarihi", u"Oluştur",
        u"Bu adda bir öğe zaten var.", u"Klasör oluşturulamadı.",
        u"Bu klasör açılamıyor", u"Yükleniyor…",
        u"Kes", u"Kopyala", u"Yapıştır", u"Tümünü Seç"}},
    Language{u"ar", {
        u"المواقع", u"المجلد الرئيسي", u"الكمبيوتر", u"المجلد الحاوي", u"تاريخ التعديل", u"إنشاء",
        u"يوجد عنصر بهذا الاسم بالفعل.", u"تعذر إنشاء المجلد.",
        u"لا يمكن فتح هذا المجلد", u"جارٍ التحميل…",
        u"قص", u"نسخ", u"لصق", u"تحديد الكل"}},
    Language{u"zh-Hans", {
        u"位置", u"个人文件夹", u"电脑", u"上层文件夹", u"修改日期", u"创建",
        u"已存在同名的项目。", u"无法创建文件夹。",
        u"无法打开此文件夹", u"正在载入…",
        u"剪切", u"拷贝", u"粘贴", u"全选"}},
    Language{u"zh-Hant", {
        u"位置", u"個人檔案夾", u"電腦", u"上層檔案夾", u"修改日期", u"建立",
        u"已有同名的項目。", u"無法建立檔案夾。",
        u"無法打開此檔案夾", u"正在載入…",
        u"剪下", u"拷貝", u"貼上", u"全選"}},
};
// clang-format on

} // namespace

QString PanelTexts::localized(Text text) {
    return resolved(text, AmbrelStrings::currentInterfaceLanguage().shown().id());
}

QString PanelTexts::resolved(Text text, const QString& localeIdentifier) {
    const auto found = std::ranges::find(languages, QStringView(localeIdentifier), &Language::identifier);
    const Language& language = found == languages.end() ? languages.front() : *found;
    return language.texts.at(static_cast<std::size_t>(text)).toString();
}
