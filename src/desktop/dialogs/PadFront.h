#pragma once

#include "desktop/dialogs/TablePages.h"
#include "desktop/system/DesktopPlatform.h"

#include <QComboBox>
#include <QObject>
#include <QString>
#include <memory>

namespace linealis::desktop {

/// The choice of what a pad has on its fronts: the page of the form again and again, or a page for each row of a
/// table.
class PadFront final : public QObject {
    Q_OBJECT

public:
    /// Tables are laid over the form of the window. All arguments must outlive the object.
    PadFront(DesktopPlatform& thePlatform, const PaperKind& theKind, const PaperWindow& theWindow);

    /// The list of fronts. The caller places it, and deletes it.
    QComboBox& Fronts() const { return *fronts; }

    /// The chosen table; null if there is none.
    const std::shared_ptr<const TablePages>& Table() const { return table; }

    /// Whether a table is being read. Meanwhile, events are processed.
    bool IsReading() const { return isReading; }
    /// Stops reading a table; the choice stays as it was.
    void Stop() { stop = true; }

signals:
    void Changed();
    /// Emitted with the reason, in words, if the table cannot be used. The choice stays as it was.
    void Refused(const QString& why);
    /// Emitted when a table begins to be read, and after its end.
    void ReadingChanged();

private:
    /// Takes over the choice in the list. Asks for the file if it is a table.
    void Choose();
    QString AskForFile();
    /// Reads the table. Returns why it cannot be used, or an empty text.
    QString Read(const FolderItem& file);

    DesktopPlatform& platform;
    const PaperKind& kind;
    const PaperWindow& window;
    QComboBox* fronts = new QComboBox;
    int chosen = 0;  ///< the index in the list
    std::shared_ptr<const TablePages> table;
    bool isReading = false;
    bool stop = false;
};

}  // namespace linealis::desktop
