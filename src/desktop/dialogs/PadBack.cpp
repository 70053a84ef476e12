#include "desktop/dialogs/PadBack.h"

#include "desktop/system/Text.h"
#include "exchange/FormJson.h"
#include "kinds/PadSheet.h"
#include "kinds/Presets.h"

namespace linealis::desktop {

namespace {

// What the list of backs offers besides the kinds.
const QString blankBack;
const QString sameBack = QStringLiteral("same");
const QString fileBack = QStringLiteral("file");

QString SizeInPoints(const PageFrame& frame)
{
    return PadBack::tr("%1 × %2 points").arg(frame.paperWidth).arg(frame.paperHeight);
}

/// Reads the form in a file that belongs to a kind, or carries its kind. Throws FormError or UnknownInput.
PaperOfBack PaperIn(const FolderItem& file, ScreenlessPlatform& platform)
{
    if (const PaperKind* const kind = FindPaperKindOf(file.Path())) {
        auto window = MakeWindow(*kind, platform);
        if (const std::error_code error = window->LoadSettings(file)) {
            throw FormError{Message("%1: %2", file.Name(), error.message())};
        }
        if (!platform.notes.empty()) {  // the file is damaged
            throw FormError{Message::Verbatim(platform.notes.back())};
        }
        return {kind, std::move(window)};
    }
    const FormFile form = ReadFormFile(file);
    const PaperKind* const kind = FindPaperKind(form.kind);
    if (kind == nullptr) {
        throw FormError{Message("%1: carries the form of no kind of paper", file.Name())};
    }
    auto window = MakeWindow(*kind, platform);
    LayOver(form, *kind, window->form);
    return {kind, std::move(window)};
}

}  // namespace

PadBack::PadBack(DesktopPlatform& thePlatform, const PaperForm& theFrontForm, const PaperPage& theFront)
    : platform(thePlatform), frontForm(theFrontForm), front(theFront)
{
    backs->setObjectName(QStringLiteral("PadBack"));
    presets->setObjectName(QStringLiteral("PadPreset"));
    FillBacks();
    FillPresets();
    connect(backs, &QComboBox::currentIndexChanged, this, &PadBack::Choose);
    connect(backs, &QComboBox::activated, this, [this] {
        if (backs->currentData() == fileBack && chosen == backs->currentIndex()) {
            Choose();  // another file
        }
    });
    connect(presets, &QComboBox::activated, this, [this] {
        MakePaper();
        emit Changed();
    });
}

void PadBack::FillBacks()
{
    backs->addItem(tr("Blank"), blankBack);
    backs->addItem(tr("Same as the front"), sameBack);
    backs->addItem(tr("File..."), fileBack);
    backs->insertSeparator(backs->count());
    for (const PaperKind& each : PaperKinds()) {
        backs->addItem(Translated(each.galleryTitle).simplified(), ToQt(each.name));
    }
}

void PadBack::FillPresets()
{
    const QString kind = backs->currentData().toString();
    presets->clear();
    presets->addItem(tr("None"), QString());
    for (const Preset* const each : PresetsFor(!front.frame.IsInInches())) {
        if (ToQt(each->kind) == kind) {
            presets->addItem(Translated(each->title), ToQt(each->id));
        }
    }
    presets->setEnabled(presets->count() > 1);
}

void PadBack::Choose()
{
    if (backs->currentData() != fileBack) {
        chosen = backs->currentIndex();
        FillPresets();
        MakePaper();
        emit Changed();
        return;
    }
    const QStringList given = platform.AskForSettings(QFileDialog::ExistingFile);
    const FolderItem asked = given.isEmpty() ? FolderItem() : FolderItem(given.front().toStdString());
    const QString why = asked.IsEmpty() ? QString() : Read(asked);
    if (asked.IsEmpty() || !why.isEmpty()) {
        const QSignalBlocker isNoChoice(backs);
        backs->setCurrentIndex(chosen);
    } else {
        chosen = backs->currentIndex();
        backs->setItemText(chosen, tr("%1...").arg(ToQt(file.Name())));
        FillPresets();
        emit Changed();
    }
    if (!why.isEmpty()) {
        emit Refused(why);
    }
}

QString PadBack::Read(const FolderItem& given)
{
    readPlatform.notes.clear();
    try {
        PaperOfBack read = PaperIn(given, readPlatform);
        if (const QString why = WhyUnfit(*read.window); !why.isEmpty()) {
            return tr("%1 cannot be the back: %2").arg(ToQt(given.Name()), why);
        }
        paper = std::move(read);
        file = given;
    } catch (const FormError& error) {
        return ToQt(error.message);
    } catch (const UnknownInput& input) {
        return ToQt(Message("%1: unknown %2 '%3'", given.Name(), input.what, input.given));
    }
    return {};
}

QString PadBack::WhyUnfit(const PaperWindow& read) const
{
    const PageFrame& frame = read.ReadPage().frame;
    const bool fits = frame.paperWidth == front.frame.paperWidth && frame.paperHeight == front.frame.paperHeight;
    return fits ? QString()
                : tr("its page has %1, the front %2").arg(SizeInPoints(frame), SizeInPoints(front.frame));
}

void PadBack::MakePaper()
{
    paper = {};
    file = {};
    const std::string name = backs->currentData().toString().toStdString();
    const PaperKind* const kind = FindPaperKind(name);
    if (kind == nullptr) {
        return;
    }
    const Preset* const preset = FindPreset(presets->currentData().toString().toStdString());
    paper = {kind, preset == nullptr ? MakeWindow(*kind, readPlatform) : MakeWindow(*preset, readPlatform)};
    TakePaperOf(frontForm, name, paper.window->form);
}

std::optional<PaperPage> PadBack::Page() const
{
    if (IsFrontForm()) {
        return front;
    }
    return paper.window == nullptr ? std::nullopt : std::optional(paper.window->ReadPage());
}

bool PadBack::IsFrontForm() const
{
    return backs->currentData() == sameBack;
}

std::string PadBack::Carried() const
{
    return paper.window == nullptr ? std::string() : CarriedForm(*paper.kind, paper.window->form);
}

void PadBack::SetFrontIsTable(bool isTable)
{
    backs->setItemText(backs->findData(sameBack), isTable ? tr("This form") : tr("Same as the front"));
}

}  // namespace linealis::desktop
