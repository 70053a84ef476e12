#pragma once

#include "pdf/MyPDFGenerator.h"
#include "pipeline/document/MarkerFile.h"
#include "pipeline/document/Paper.h"
#include "pipeline/page/PageJob.h"
#include "platform/FolderItem.h"
#include "platform/Platform.h"

#include <optional>
#include <string>
#include <system_error>
#include <vector>

namespace linealis {

/// The complete state of a paper window.
struct WindowState {
    std::vector<ControlState> form;
    FolderItem outputFile;
    FolderItem ourFolderItem;

    bool operator==(const WindowState&) const = default;
};

/// A paper window without its screen: a form, the steps from Generate to the file, and the settings file. The same
/// for every kind of paper.
class PaperWindow {
public:
    /// Creates the window of a paper. `typeOfSettings` is the type of its settings files. `thePlatform` must
    /// outlive the window.
    PaperWindow(Paper thePaper, const FileType& typeOfSettings, Platform& thePlatform);
    PaperWindow(const PaperWindow&) = delete;
    PaperWindow& operator=(const PaperWindow&) = delete;

    PaperForm& form;

    /// Returns the wizard of this window, or null.
    Wizard* GetWizard() const { return paper.wizard.get(); }
    /// Returns the wizard of this window that fits ranges of data to the paper, or null.
    RangeWizard* GetRangeWizard() const { return paper.rangeWizard.get(); }

    WindowState State() const { return {form.State(), outputFile, ourFolderItem}; }
    /// Restores an earlier state of this window. Runs no handler.
    void Restore(const WindowState& earlier);

    // Page.

    /// Draws the page from the current form as Generate does, with its dialogs and yields. Exceptions pass through
    /// (see DrawContent).
    DrawnPage DrawPage();
    /// Draws a page that was read from the form before.
    DrawnPage DrawPage(PaperPage read);
    /// Reads the page from the current form without drawing it. It has the markers of the chosen file, if there is
    /// one, and asks for none.
    PaperPage ReadPage() const;

    /// Reads the form into the values of the page, in points.
    void ReadGUIValues();
    /// Determines the output file, asking for one if there is none, and makes the page.
    void DoFilename();
    /// Writes corrected values to the form, then draws the page and writes the file.
    void DoPage();
    /// Handles the Generate button. With Shift held down, asks for a new file. Opens the page in a viewer if the
    /// form says so.
    void PushButtonGenerate_Action();
    /// Asks for another output file. Keeps the current one if the user cancels.
    void ChooseOutputFile();
    /// Handles a click on a color swatch.
    void ColorCanvas_MouseDown(Swatch& canvas);

    // Markers. A chosen file is part of neither the settings nor the state.

    /// Uses the file for the markers of all pages from now on. An empty reference: each page asks for its file.
    void ChooseMarkerFile(const FolderItem& file);
    /// Reads the chosen file again. Returns whether its content has changed.
    bool ReadMarkerFile();
    const FolderItem& ChosenMarkerFile() const { return markerFile; }
    /// The content of the chosen file when it was last read. Pages that are drawn read it again.
    const MarkerFile& Markers() const { return markers; }

    // Settings. A failure leaves the form and the file as they were and is returned to the caller; nothing is
    // shown. A damaged file, or one of another kind, is reported through Platform::Note.

    std::error_code SaveSettings(const FolderItem& file) const;
    std::error_code LoadSettings(const FolderItem& file);
    /// Returns the names of the controls that a settings file would not restore, such as "Draw Frame, Custom
    /// width". Empty if it stores everything.
    Message LostBySaving() const;
    /// Returns the bytes that SaveSettings writes.
    std::string SettingsBytes() const;
    /// Loads settings into the form. The output file stays the same.
    std::error_code LayOver(BinaryStream settings);
    /// Loads the file and makes it the document of the window. This and the actions below report problems through
    /// Platform::Note. Each returns whether a file was opened or saved.
    bool OpenDocument(const FolderItem& file);
    /// Whether the form, or the output file that it names, differs from the settings file that was last opened or
    /// saved. False if there is none.
    bool IsModified() const { return !ourFolderItem.IsEmpty() && stored != form.State(); }
    bool FileOpen_Action();
    bool FileSave_Action();
    bool FileSaveAs_Action();

    const FolderItem& OutputFile() const { return outputFile; }
    /// The settings file that was last opened or saved; empty if there is none.
    const FolderItem& OurFolderItem() const { return ourFolderItem; }
    /// The outcome of the last Generate; nothing if it made no page because no file was chosen.
    std::optional<PageEnd> LastPage() const { return lastPage; }
    /// The page that the last Generate read.
    const PaperPage& Page() const { return page; }
    /// The generator with the drawing of the last Generate.
    const MyPDFGenerator& Pdf() const { return pdf; }

private:
    LoadResult Load(const FolderItem& file);
    /// A failure leaves the form and `fileOfPage` as they were.
    LoadResult Load(BinaryStream settings, FolderItem& fileOfPage);
    bool Store(const FolderItem& file);
    void SetOutputFile(const FolderItem& file);
    /// Whether the page may replace the output file. A settings file can name any PDF, so the user is asked once
    /// about a PDF that this program did not make.
    bool MayReplaceOutputFile();
    PageQuestions Dialogs() const;
    /// Reads the chosen marker file again before a page is drawn, and notes if it cannot be used.
    void UpdateMarkers();
    /// Notes why a marker file has no lines.
    void NoteNoMarkers(const MarkerFile& unusable) const;

    Paper paper;
    FileType settingsType;
    Platform& platform;
    Turns turns;
    MyPDFGenerator pdf;
    PaperPage page;
    FolderItem outputFile;
    FolderItem settledFile;  ///< the last output file that the user chose or confirmed, or that was written
    FolderItem ourFolderItem;
    FolderItem markerFile;             ///< chosen for all pages; empty if there is none
    MarkerFile markers;                ///< its content
    std::vector<ControlState> stored;  ///< the form as last saved or opened
    std::optional<PageEnd> lastPage;
};

}  // namespace linealis
