#pragma once

#include "desktop/window/PaperSearch.h"

#include <QTimer>
#include <QWidget>
#include <vector>

class QCheckBox;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace linealis::desktop {

/// Gives the hint in an empty field a color that is easy to read. That of the style is too faint.
void MakeHintReadable(QLineEdit& field, const QPalette& palette);

/// Returns the text of a hit in a list: its title, and the kind or folder that it belongs to.
QString LineOf(const PaperHit& hit);

/// Shows a search field for kinds, presets, and files, the list of hits, and buttons for presets and settings
/// files. On the first start in a metric locale, also offers A4 and centimeters for new forms. Runs its first
/// search only after it has been painted, and makes the pictures one at a time, so that the gallery appears without
/// delay.
class GallerySearch final : public QWidget {
    Q_OBJECT

public:
    /// The preferences folder contains the user's presets and the list of recent files.
    explicit GallerySearch(FolderItem thePreferencesFolder, QWidget* parent = nullptr);

    /// Searches again, because files and presets may have been added or removed. Keeps the selection if the
    /// selected hit still exists.
    void Refresh();

    /// Moves the focus to the field and appends the text, as if it were typed there.
    void Type(const QString& text);

    /// Returns the widgets in the order of the Tab key.
    std::vector<QWidget*> TabStops() const;

    /// Keeps space at the lower right free for a button of that size.
    void LeaveFree(const QSize& size);

signals:
    /// Emitted when the user has chosen a hit.
    void Chosen(const PaperHit& hit);
    /// Emitted when the user wants to open settings files.
    void OpenWanted();
    /// Emitted when the user wants to choose a preset from pictures.
    void PickerWanted();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void LayOut();
    void SetColors();
    /// Emits Chosen for the hit in the row. Ignores a row without a hit.
    void Choose(int row);
    /// Makes the next missing picture, and schedules the one after it.
    void MakeNextPicture();
    /// Handles a key in the search field. Returns false if the field itself must handle it.
    bool FieldKey(int key);

    FolderItem preferencesFolder;
    std::vector<PaperHit> hits;  ///< in the order of the list
    QLineEdit* field = nullptr;
    QListWidget* list = nullptr;
    QPushButton* open = nullptr;
    QPushButton* choose = nullptr;
    QCheckBox* metric = nullptr;  ///< null if it is not offered
    QTimer pictureTimer;
    int nextPicture = 0;         ///< the row of the next missing picture
    bool settingColors = false;  ///< prevents recursion while SetColors changes the palette
    bool isPainted = false;
};

}  // namespace linealis::desktop
