#pragma once

#include "desktop/window/PaperSearch.h"

#include <QTimer>
#include <QWidget>
#include <vector>

class QLineEdit;
class QListWidget;
class QPushButton;

namespace linealis::desktop {

/// A field to search kinds, presets and files, what is found, and a button that opens any settings file. It looks
/// for what it shows only once it has been painted, and makes the pictures one at a time, so that nobody waits for
/// them.
class GallerySearch final : public QWidget {
    Q_OBJECT

public:
    /// The preferences folder is where own presets and recent files stand.
    explicit GallerySearch(FolderItem thePreferencesFolder, QWidget* parent = nullptr);

    /// Searches again: a file or preset may have come or gone. What is selected stays, if it is still there.
    void Refresh();

    /// Goes on with the text as if it were typed into the field.
    void Type(const QString& text);

    /// In the order of the Tab key.
    std::vector<QWidget*> TabStops() const;

    /// The room at the lower right that is left free for a button of that size.
    void LeaveFree(const QSize& size);

signals:
    void Chosen(const PaperHit& hit);
    void OpenWanted();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void LayOut();
    void SetColors();
    void Choose(int row);
    /// Makes one picture that is still missing, and has itself called for the next one.
    void MakeNextPicture();
    bool FieldKey(int key);

    FolderItem preferencesFolder;
    std::vector<PaperHit> hits;  ///< as the list shows them
    QLineEdit* field = nullptr;
    QListWidget* list = nullptr;
    QPushButton* open = nullptr;
    QTimer pictureTimer;
    int nextPicture = 0;
    bool settingColors = false;
    bool isPainted = false;
};

}  // namespace linealis::desktop
