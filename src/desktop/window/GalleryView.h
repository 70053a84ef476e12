#pragma once

#include "desktop/window/PaperSearch.h"
#include "services/GalleryWindow.h"

#include <QMainWindow>
#include <vector>

class QPushButton;
class QScrollArea;

namespace linealis::desktop {

class GallerySearch;

/// Shows the gallery, the first window of the program: a picture of each paper kind, and a search.
class GalleryView final : public QMainWindow {
    Q_OBJECT

public:
    /// The preferences folder contains the user's presets and the list of recent files.
    GalleryView(GalleryWindow& theGallery, const FolderItem& preferencesFolder);

    /// Gives the window the size of its content, or of the primary screen if that is smaller, and centers it there.
    /// Must be called after the menus have been added, because they
    /// change the height.
    void Place();

signals:
    /// Emitted when the user has clicked Help.
    void HelpWanted();
    /// Emitted when the user has pressed F1 to see the manual window.
    void ManualWanted();
    /// Emitted when the user has chosen a preset or a file. A hit that is a kind is opened without this signal.
    void Chosen(const PaperHit& hit);
    /// Emitted when the user wants to choose settings files to open.
    void OpenWanted();
    /// Emitted when the user wants to choose a preset from pictures.
    void PickerWanted();
    /// Emitted when settings files have been dropped on the window.
    void FilesDropped(const QStringList& files);
    /// Emitted when the user has closed the window, which is already hidden.
    void Closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    /// Adds the line above the entries, and the entries.
    void AddEntries(QWidget* content);
    QPushButton* AddHelp(QWidget* content) const;
    void AddSearch(QWidget* content, const FolderItem& preferencesFolder, QPushButton* help);
    /// Gives the content its size and places the search and the Help button at its lower right.
    void PlaceSearch(QWidget* content, QPushButton* help) const;
    /// Limits the part of the content that is shown to what fits `room`, in pixels. The rest can be scrolled to.
    void FitInto(const QSize& room);
    /// Returns the picture that a key moves the focus to from the picture `from`. Null if the key does not move
    /// it.
    QWidget* PictureFor(int key, std::size_t from) const;

    GalleryWindow& gallery;
    std::vector<QWidget*> pictures;  ///< in the order of the entries
    QScrollArea* area = nullptr;
    GallerySearch* search = nullptr;
};

}  // namespace linealis::desktop
