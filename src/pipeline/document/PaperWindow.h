#pragma once

#include "pdf/MyPDFGenerator.h"
#include "pipeline/document/Paper.h"
#include "pipeline/page/PageJob.h"
#include "platform/FolderItem.h"
#include "platform/Platform.h"

#include <optional>
#include <string>
#include <system_error>
#include <vector>

namespace linealis {

/// What a paper window holds at a moment.
struct WindowState {
    std::vector<ControlState> form;
    FolderItem outputFile;
    FolderItem ourFolderItem;

    bool operator==(const WindowState&) const = default;
};

/// A paper window without its screen: a form, the road from Generate to the file, and the settings file. It is the
/// same for every kind of paper.
class PaperWindow {
public:
    /// The window of a paper, whose settings files are of that type.
    PaperWindow(Paper thePaper, const FileType& typeOfSettings, Platform& thePlatform);
    PaperWindow(const PaperWindow&) = delete;
    PaperWindow& operator=(const PaperWindow&) = delete;

    PaperForm& form;

    /// The wizard of this window, or null.
    Wizard* GetWizard() const { return paper.wizard.get(); }

    WindowState State() const { return {form.State(), outputFile, ourFolderItem}; }
    /// Puts a state of this window back. No handler runs.
    void Restore(const WindowState& earlier);

    // Page.

    /// The page as the form stands now, drawn as Generate draws it, with its dialogs and turns. What these throw
    /// passes through (DrawContent).
    DrawnPage DrawPage() { return DrawPage(ReadPage()); }
    /// The same of a page that was read from the form.
    DrawnPage DrawPage(PaperPage read);
    /// The same, not drawn.
    PaperPage ReadPage() const { return paper.readPage(); }

    /// Turns the form's text into the page's numbers, in points.
    void ReadGUIValues();
    /// Settles the output file, asking for one if there is none, and makes the page.
    void DoFilename();
    void DoPage();
    void PushButtonGenerate_Action();
    /// Asks for another file for the page. Keeps the one there is if the user cancels.
    void ChooseOutputFile();
    /// A click on a color swatch.
    void ColorCanvas_MouseDown(Swatch& canvas);

    // Settings. A failure leaves form and file as they were and is returned, for who wants to tell of it; nothing
    // is shown. A file that is damaged or of another kind is noted (Platform::Note).

    std::error_code SaveSettings(const FolderItem& file) const;
    std::error_code LoadSettings(const FolderItem& file);
    /// What a settings file would not bring back, by names, such as "Draw Frame, Custom width"; empty if it keeps
    /// all.
    std::string LostBySaving() const;
    /// What SaveSettings writes.
    std::string SettingsBytes() const;
    /// Loads settings, but for the output file, which stays.
    std::error_code LayOver(BinaryStream settings);
    /// Loads the file and takes it for the window's document. What goes wrong is noted (Platform::Note), as in the
    /// actions below; each returns whether it has opened or saved a file.
    bool OpenDocument(const FolderItem& file);
    /// Whether the form, or the file that its page goes to, is no longer what the settings file holds that was
    /// last opened or saved. False as long as there is none.
    bool IsModified() const { return !ourFolderItem.IsEmpty() && stored != form.State(); }
    bool FileOpen_Action();
    bool FileSave_Action();
    bool FileSaveAs_Action();

    const FolderItem& OutputFile() const { return outputFile; }
    /// The settings file last opened or saved; empty until then.
    const FolderItem& OurFolderItem() const { return ourFolderItem; }
    /// How the last Generate ended; nothing if it made no page, for want of a file.
    std::optional<PageEnd> LastPage() const { return lastPage; }
    /// The page that the last Generate read, and what it has drawn of it.
    const PaperPage& Page() const { return page; }
    const MyPDFGenerator& Pdf() const { return pdf; }

private:
    LoadResult Load(const FolderItem& file);
    /// A failure leaves form and file of the page as they were.
    LoadResult Load(BinaryStream settings, FolderItem& fileOfPage);
    bool Store(const FolderItem& file);
    void NoteFailure(const FolderItem& file, const char* what, std::error_code error) const;
    void SetOutputFile(const FolderItem& file);
    /// Whether the page may take the place of the output file. A settings file may have named any PDF, so one that
    /// this program did not make is asked about, once.
    bool MayReplaceOutputFile();
    PageQuestions Dialogs() const;

    Paper paper;
    FileType settingsType;
    Platform& platform;
    Turns turns;
    MyPDFGenerator pdf;
    PaperPage page;
    FolderItem outputFile;
    FolderItem settledFile;  ///< the last output file that the user has chosen, or agreed to, or that was written
    FolderItem ourFolderItem;
    std::vector<ControlState> stored;  ///< the form when it was last saved or opened
    std::optional<PageEnd> lastPage;
};

}  // namespace linealis
