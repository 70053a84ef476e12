#include "pipeline/PaperWindow.h"

#include "pipeline/MarkerFile.h"
#include "pipeline/PageJob.h"

#include <memory>
#include <string>
#include <utility>

namespace linealis {

namespace {

constexpr FileType textFileType{"text", ""};

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

void PaperWindow::ReadGUIValues()
{
    page = ReadPage();
}

void PaperWindow::PushButtonGenerate_Action()
{
    if (platform.ShiftKey()) {
        SetOutputFile({});
    }
    pageStopped = false;
    ReadGUIValues();
    DoFilename();
    if (form.CheckBoxViewGraph.Value() && !pdf.theFile.IsEmpty() && !pageStopped) {
        platform.Launch(pdf.theFile);
    }
}

void PaperWindow::DoFilename()
{
    if (outputFile.IsEmpty()) {
        outputFile = platform.GetSaveFolderItem(pdfFileType, "Untitled.pdf");
    }
    pdf.theFile = outputFile;
    if (outputFile.IsEmpty()) {
        return;
    }
    SetOutputFile(outputFile);
    DoPage();
}

void PaperWindow::SetOutputFile(const FolderItem& file)
{
    outputFile = file;
    form.StaticFileName.SetCaption(file.IsEmpty() ? "" : file.Name());
}

void PaperWindow::DoPage()
{
    form.WriteCorrections();
    pageStopped = !MakePage(page, pdf, turns, Dialogs(), platform);
}

/// Each in its place, in the middle of the page.
PageQuestions PaperWindow::Dialogs() const
{
    return {.say = [this](const std::string& message) { platform.MsgBox(message); },
            .askForMarkers = [this]() -> std::function<bool(std::string&)> {
                const FolderItem chosen = platform.GetOpenFolderItem(textFileType);
                auto file = std::make_shared<MarkerFile>(chosen);
                if (chosen.Exists() && !file->Error().empty()) {
                    platform.Note(file->Error() + ", so there are no markers");
                }
                return [file](std::string& line) { return file->NextLine(line); };
            }};
}

void PaperWindow::ColorCanvas_MouseDown(Swatch& canvas)
{
    Color color = canvas.Shown();
    if (platform.SelectColor(color, "Select a Color")) {
        canvas.SetColor(color);
    }
}

std::error_code PaperWindow::SaveSettings(const FolderItem& file) const
{
    return linealis::SaveSettings(paper.settings, outputFile, file);
}

std::error_code PaperWindow::LoadSettings(const FolderItem& file)
{
    form.BeforeLoad();
    FolderItem loaded = outputFile;
    const std::error_code error = linealis::LoadSettings(paper.settings, loaded, file);
    if (!error) {
        SetOutputFile(loaded);
    }
    return error;
}

void PaperWindow::OpenDocument(const FolderItem& file)
{
    LoadSettings(file);
    ourFolderItem = file;
}

void PaperWindow::FileOpen_Action()
{
    if (const FolderItem file = platform.GetOpenFolderItem(settingsType); !file.IsEmpty()) {
        OpenDocument(file);
    }
}

void PaperWindow::FileSave_Action()
{
    SaveSettings(ourFolderItem);
}

void PaperWindow::FileSaveAs_Action()
{
    if (const FolderItem file = platform.GetSaveFolderItem(settingsType, "Untitled"); !file.IsEmpty()) {
        SaveSettings(file);
        ourFolderItem = file;
    }
}

}  // namespace linealis
