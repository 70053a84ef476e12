#pragma once

#include "desktop/window/PaperSearch.h"

#include <QDialog>
#include <optional>

class QLineEdit;
class QListWidget;

namespace linealis::desktop {

class PresetPictures;
class PresetTiles;

/// A dialog that shows all presets as pictures, in groups, with a search. A click or Return chooses one and closes
/// the dialog.
class PresetPicker final : public QDialog {
    Q_OBJECT

public:
    /// Begins at the presets of `kind`, unless that is null. The preferences folder contains the user's presets.
    /// `pictures` must outlive the dialog.
    PresetPicker(PresetPictures& pictures, FolderItem thePreferencesFolder, const PaperKind* kind, QWidget* parent);

    /// Returns the chosen preset, once the dialog has been accepted.
    const std::optional<PaperHit>& Chosen() const { return chosen; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void LayOut();
    /// Limits the size to two thirds of the height of the screen.
    void SetSize();
    /// Moves the focus to the field and appends the text, as if it were typed there.
    void Type(const QString& text);
    /// Shows the presets that contain the words in the field, and their groups.
    void Search();
    /// Selects the group that the tiles show.
    void FollowTiles();

    FolderItem preferencesFolder;
    QLineEdit* field = nullptr;
    QListWidget* groups = nullptr;
    PresetTiles* tiles;
    std::optional<PaperHit> chosen;
};

}  // namespace linealis::desktop
