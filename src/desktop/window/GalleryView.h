#pragma once

#include "desktop/window/PaperSearch.h"
#include "services/GalleryWindow.h"

#include <QMainWindow>
#include <vector>

class QPushButton;

namespace linealis::desktop {

class GallerySearch;

/// The program's first screen.
class GalleryView final : public QMainWindow {
    Q_OBJECT

public:
    /// The preferences folder is where presets and the files used last are found.
    GalleryView(GalleryWindow& theGallery, const FolderItem& preferencesFolder);

    /// Centers the window on the first screen, once it has its menus.
    void Place();

signals:
    void HelpWanted();
    /// The manual inside the program, which has no button here.
    void ManualWanted();
    /// The user has chosen where to begin. It is no kind: that is opened already.
    void Chosen(const PaperHit& hit);
    /// Settings files are to be opened, which the user will choose.
    void OpenWanted();
    /// Settings files have been dropped on the window.
    void FilesDropped(const QStringList& files);
    void Closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void AddEntries(QWidget* content);
    QPushButton* AddHelp(QWidget* content) const;
    void AddSearch(QWidget* content, const FolderItem& preferencesFolder, QPushButton* help);
    /// The picture that a key leads to from another one, or null.
    QWidget* PictureFor(int key, std::size_t from) const;

    GalleryWindow& gallery;
    std::vector<QWidget*> pictures;  ///< in the order of the entries
    GallerySearch* search = nullptr;
};

}  // namespace linealis::desktop
