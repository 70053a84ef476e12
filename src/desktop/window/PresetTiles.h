#pragma once

#include "desktop/window/PaperSearch.h"

#include <QListWidget>
#include <vector>

namespace linealis::desktop {

class PresetPictures;

/// A list of presets as tiles with a picture and a title, below the headings of their groups.
class PresetTiles final : public QListWidget {
    Q_OBJECT

public:
    /// `thePictures` must outlive the list.
    explicit PresetTiles(PresetPictures& thePictures, QWidget* parent = nullptr);

    /// Shows the presets, which must be ordered by group, and selects the first.
    void Show(std::vector<PaperHit> thePresets);
    /// Returns the groups of the presets that are shown, in order.
    std::vector<PresetGroup> Groups() const;
    /// Selects the first preset of the group and scrolls to its heading.
    void GoTo(PresetGroup group);
    /// Selects the first preset of the kind and scrolls to it. Does nothing if there is none.
    void GoTo(const PaperKind& kind);
    /// Returns the group of the selected preset if it is visible, otherwise the group at the top of what is
    /// visible. There must be presets.
    PresetGroup VisibleGroup() const;
    /// Emits Chosen for the selected preset, if there is one.
    void Choose();
    /// Returns the size of the list with `columns` columns, and rows as high as the tiles of `rows` rows.
    QSize SizeFor(int columns, int rows) const;

signals:
    /// Emitted when the user has chosen a preset.
    void Chosen(const PaperHit& preset);
    /// Emitted when the user has typed a letter or digit into the list.
    void Typed(const QString& text);

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void AddHeading(PresetGroup group);
    void AddTile(std::size_t preset);
    /// Widens the tiles so that the titles of the presets that are shown fit. A search does not narrow them again.
    void MeasureTitles();
    /// Returns the size of a tile, including its share of the space between tiles.
    QSize TileSize() const;
    /// Gives headings and tiles the sizes that the font and the width of the list require.
    void SetSizes();
    /// Returns the preset in that row; null for a heading.
    const PaperHit* PresetIn(int row) const;
    /// Returns the nearest row with a tile, in steps of `step`; the current row if there is none.
    int TileBeside(int step) const;
    /// Returns the row of the nearest tile in the line of tiles below, or above if `isDown` is false.
    int TileAcross(bool isDown) const;

    PresetPictures& pictures;
    std::vector<PaperHit> presets;
    int titleWidth = 0;  ///< of the widest title, in pixels
};

}  // namespace linealis::desktop
