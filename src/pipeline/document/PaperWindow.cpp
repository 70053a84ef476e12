#include "pipeline/document/PaperWindow.h"

#include "pdf/OwnPdf.h"
#include "pipeline/form/FieldWords.h"

#include <algorithm>
#include <string>
#include <utility>

namespace linealis {

namespace {

constexpr const char* const suggestedPageName = "Untitled.pdf";

/// Returns the page with markers of its own, so that it asks for none.
PaperPage WithMarkers(PaperPage page, const MarkerFile& markers)
{
    page.doGraph = [draw = std::move(page.doGraph), markers](MyPDFGenerator& pdf, Turns& turns,
                                                             const PageQuestions& ask) {
        draw(pdf, turns, {.say = ask.say, .askForMarkers = [&markers] { return markers.Lines(); }});
    };
    return page;
}

}  // namespace

PaperWindow::PaperWindow(Paper thePaper, const FileType& typeOfSettings, Platform& thePlatform)
    : form(*thePaper.form), paper(std::move(thePaper)), settingsType(typeOfSettings), platform(thePlatform),
      turns([this] { platform.Yield(); }), pdf(turns)
{}

void PaperWindow::Restore(const WindowState& earlier)
{
    form.Restore(earlier.form);
    outputFile = earlier.outputFile;
    ourFolderItem = earlier.ourFolderItem;
}

PaperPage PaperWindow::ReadPage() const
{
    return markerFile.IsEmpty() ? paper.readPage() : WithMarkers(paper.readPage(), markers);
}

DrawnPage PaperWindow::DrawPage()
{
    UpdateMarkers();
    return DrawPage(ReadPage());
}

DrawnPage PaperWindow::DrawPage(PaperPage read)
{
    return linealis::DrawPage(std::move(read), turns, Dialogs());
}

void PaperWindow::ReadGUIValues()
{
    UpdateMarkers();
    page = ReadPage();
}

void PaperWindow::ChooseMarkerFile(const FolderItem& file)
{
    markerFile = file;
    markers = MarkerFile(markerFile);
}

bool PaperWindow::ReadMarkerFile()
{
    const MarkerFile before = std::exchange(markers, MarkerFile(markerFile));
    return markers != before;
}

void PaperWindow::UpdateMarkers()
{
    ReadMarkerFile();
    const auto* const box = form.Find<CheckBox>("CheckBoxMarkers");
    if (box != nullptr && box->Value() && !markers.Error().IsEmpty()) {
        NoteNoMarkers(markers);
    }
}

void PaperWindow::NoteNoMarkers(const MarkerFile& unusable) const
{
    platform.Note(Message("%1, so no markers are drawn", unusable.Error()));
}

void PaperWindow::PushButtonGenerate_Action()
{
    if (platform.ShiftKey()) {
        SetOutputFile({});
    }
    lastPage.reset();
    ReadGUIValues();
    DoFilename();
    const bool toBeShown = !pdf.theFile.IsEmpty() && lastPage != PageEnd::Stopped;
    if (form.CheckBoxViewGraph.Value() && toBeShown && !platform.Launch(pdf.theFile)) {
        platform.Note(Message("Could not start a viewer for %1", pdf.theFile.Name()));
    }
}

void PaperWindow::DoFilename()
{
    if (outputFile.IsEmpty()) {
        ChooseOutputFile();
    }
    pdf.theFile = MayReplaceOutputFile() ? outputFile : FolderItem();
    if (pdf.theFile.IsEmpty()) {
        return;
    }
    SetOutputFile(outputFile);
    settledFile = outputFile;
    DoPage();
}

bool PaperWindow::MayReplaceOutputFile()
{
    if (outputFile == settledFile || !outputFile.Exists() || IsOwnPdf(outputFile)) {
        return true;
    }
    MessageDialog dialog;
    dialog.message =
        Message("%1 was not made by Linealis or has been modified since. Replace it?", outputFile.Path().string());
    dialog.actionButton = Message("Replace");
    dialog.cancelButton = Message("Cancel");
    return platform.ShowModal(dialog) == MessageDialog::Button::Action;
}

void PaperWindow::ChooseOutputFile()
{
    if (const FolderItem file = platform.GetSaveFolderItem(pdfFileType, suggestedPageName); !file.IsEmpty()) {
        SetOutputFile(file);
        settledFile = file;
    }
}

void PaperWindow::SetOutputFile(const FolderItem& file)
{
    outputFile = file;
    form.StaticFileName.SetCaption(file.IsEmpty() ? "" : file.Name());
}

void PaperWindow::DoPage()
{
    form.WriteCorrections();
    lastPage = MakePage(page, pdf, turns, Dialogs(), platform);
}

/// Shows each dialog while the page is being drawn.
PageQuestions PaperWindow::Dialogs() const
{
    return {.say = [this](const Message& message) { platform.MsgBox(message); },
            .askForMarkers =
                [this] {
                    const FolderItem given = platform.GetOpenFolderItem(markerFileType);
                    const MarkerFile file(given);
                    if (given.Exists() && !file.Error().IsEmpty()) {
                        NoteNoMarkers(file);
                    }
                    return file.Lines();
                }};
}

void PaperWindow::ColorCanvas_MouseDown(Swatch& canvas)
{
    Color color = canvas.Shown();
    if (platform.SelectColor(color, Message("Select a Color"))) {
        canvas.SetColor(color);
    }
}

std::error_code PaperWindow::SaveSettings(const FolderItem& file) const
{
    return linealis::SaveSettings(paper.settings, outputFile, file);
}

Message PaperWindow::LostBySaving() const
{
    std::vector<Message> names;
    for (const Control* const control : form.Controls()) {
        const bool isKept =
            std::any_of(paper.settings.begin(), paper.settings.end(),
                        [&](const SettingsField& field) { return field.control == control->Name(); });
        const bool isCut = control->Kind() == ControlKind::Text &&
                           static_cast<const TextField&>(*control).Text().size() > BinaryStream::longestPString;
        const bool isDifferent = control->Kind() != ControlKind::Label && !form.IsAsOpened(*control);
        if (isKept ? isCut : isDifferent && form.WhyIdle(*control).IsEmpty()) {
            names.push_back(WholeName(form, *control));
        }
    }
    return Message::Joined(std::move(names), ", ");
}

std::error_code PaperWindow::LoadSettings(const FolderItem& file)
{
    return Load(file).error;
}

std::string PaperWindow::SettingsBytes() const
{
    std::string bytes;
    linealis::SaveSettings(paper.settings, outputFile, BinaryStream::IntoMemory(bytes));
    return bytes;
}

std::error_code PaperWindow::LayOver(BinaryStream settings)
{
    if (!settings.IsOpen()) {
        return settings.Error();
    }
    FolderItem ignored;
    return Load(std::move(settings), ignored).error;
}

LoadResult PaperWindow::Load(const FolderItem& file)
{
    FolderItem loaded = outputFile;
    const LoadResult result = Load(file.OpenAsBinaryFile(), loaded);
    if (!result.error) {
        SetOutputFile(loaded);
        if (const Message problem = result.Problem(); !problem.IsEmpty()) {
            platform.Note(Message("%1 %2", file.Name(), problem));
        }
    }
    return result;
}

LoadResult PaperWindow::Load(BinaryStream settings, FolderItem& fileOfPage)
{
    form.BeforeLoad();
    const std::vector<ControlState> before = form.State();
    const LoadResult result = linealis::LoadSettings(paper.settings, fileOfPage, std::move(settings));
    if (result.error) {
        form.Restore(before);
    }
    return result;
}

bool PaperWindow::OpenDocument(const FolderItem& file)
{
    const LoadResult result = Load(file);
    if (result.error) {
        platform.Note(Message("%1 could not be opened: %2", file.Name(), result.error.message()));
    }
    ourFolderItem = file;
    stored = form.State();
    return !result.error;
}

bool PaperWindow::Store(const FolderItem& file)
{
    const std::error_code error = SaveSettings(file);
    if (error) {
        platform.Note(Message("%1 could not be saved: %2", file.Name(), error.message()));
        return false;
    }
    stored = form.State();
    if (const Message lost = LostBySaving(); !file.IsEmpty() && !lost.IsEmpty()) {
        platform.Note(Message("%1 does not store %2", file.Name(), lost));
    }
    return true;
}

bool PaperWindow::FileOpen_Action()
{
    const FolderItem file = platform.GetOpenFolderItem(settingsType);
    return !file.IsEmpty() && OpenDocument(file);
}

bool PaperWindow::FileSave_Action()
{
    return Store(ourFolderItem);
}

bool PaperWindow::FileSaveAs_Action()
{
    const FolderItem file = platform.GetSaveFolderItem(settingsType, "Untitled");
    if (file.IsEmpty()) {
        return false;
    }
    ourFolderItem = file;
    return Store(file);
}

}  // namespace linealis
