#pragma once

#include "pdf/MyPDFGenerator.h"
#include "pipeline/CommonControls.h"
#include "pipeline/PaperForm.h"
#include "pipeline/SettingsTable.h"
#include "platform/FolderItem.h"
#include "platform/Platform.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>

namespace linealis {

/// A paper window without its screen: a form, the road from Generate to the file, and the settings file. What all
/// kinds share stands here; a kind adds its controls, its settings fields, its numbers and its drawing.
class PaperWindow {
public:
    PaperForm form;

    PaperWindow(const PaperWindow&) = delete;
    PaperWindow& operator=(const PaperWindow&) = delete;
    virtual ~PaperWindow() = default;

    /// Brings the form into its opening state. Runs once, before anything else.
    virtual void Event_Open();

    /// Runs when the window is closed.
    virtual void Event_Close() {}

    // Page (PaperWindow.cpp).

    /// Sets paperWidth and paperHeight from the form.
    void GetPaperSize();
    /// Writes paperWidth and paperHeight back to the custom size fields.
    void SetPaperSize();
    /// Turns the form's text into numbers, in points.
    void ReadGUIValues();
    /// Settles the output file, asking for one if there is none, and makes the page.
    void DoFilename();
    void DoPage();
    void PushButtonGenerate_Action();
    /// A click on a colour swatch.
    void ColorCanvas_MouseDown(std::string_view canvas);

    // Settings (PaperWindow_Settings.cpp). A failure leaves form and file as they were and is returned, for who
    // wants to tell of it; nothing is shown.

    std::error_code SaveSettings(const FolderItem& file) const;
    virtual std::error_code LoadSettings(const FolderItem& file);
    /// Loads the file and takes it for the window's document.
    void OpenDocument(const FolderItem& file);
    void FileOpen_Action();
    void FileSave_Action();
    void FileSaveAs_Action();

    const FolderItem& OutputFile() const { return outputFile; }
    /// The settings file last opened or saved; empty until then.
    const FolderItem& OurFolderItem() const { return ourFolderItem; }
    /// The page as drawn last, for who wants to look at its operators.
    const MyPDFGenerator& Pdf() const { return pdf; }

protected:
    PaperWindow(Platform& thePlatform, const ControlTable& ownControls, const SettingsTable& fields,
                const FileType& typeOfSettings, const MarginTexts& margins = {});

    /// The kind's own numbers. Runs in ReadGUIValues between the margins and the paper size.
    virtual void ReadOwnValues() = 0;

    /// Draws the page. The fields that it changes hold for this page only.
    virtual void DoGraph() = 0;

    virtual void PopupPaperSize_Change();
    virtual void PopupUnits_Change();

    /// The yield of the drawing loops. Gives up a page that takes more rounds than any page of the largest size.
    void RuntimeBackgroundTask();

    /// Sets usableWidth and usableHeight to the room between the margins.
    void MeasureUsableArea();

    /// A line as a path of its own.
    void StrokeLine(double x1, double y1, double x2, double y2);

    Platform& platform;
    MyPDFGenerator pdf;
    std::int64_t paperWidth = 0;   ///< points
    std::int64_t paperHeight = 0;  ///< points
    double unitPixels = 0.0;       ///< points per unit of length
    double leftMargin = 0.0;       ///< points, like the other margins; DoGraph may shift them for one page
    double rightMargin = 0.0;
    double topMargin = 0.0;
    double bottomMargin = 0.0;
    double usableWidth = 0.0;   ///< points; set by DoGraph
    double usableHeight = 0.0;  ///< points; set by DoGraph

private:
    void DrawPage();
    void GiveUpPage(const std::string& reason);

    void WriteField(const SettingsField& field, BinaryStream& stream) const;
    void ReadField(const SettingsField& field, BinaryStream& stream, double& sizeMarker);
    void ReadSize(std::string_view control, std::string text, double sizeMarker);
    static void WriteAlias(const FolderItem& file, BinaryStream& stream);
    static FolderItem ReadAlias(BinaryStream& stream);
    void SetOutputFile(const FolderItem& file);

    const SettingsTable& settingsTable;
    FileType settingsType;
    FolderItem outputFile;
    FolderItem ourFolderItem;
    std::int64_t rounds = 0;
    bool pageStopped = false;  ///< by the user, the last time
};

}  // namespace linealis
