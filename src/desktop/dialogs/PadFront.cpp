#include "desktop/dialogs/PadFront.h"

#include "desktop/system/Text.h"
#include "exchange/TableReader.h"

#include <QScopeGuard>
#include <QSignalBlocker>

namespace linealis::desktop {

namespace {

// What the list of fronts offers.
constexpr int formFront = 0, tableFront = 1;

const QString tableFolderKey = QStringLiteral("folders/table");

}  // namespace

PadFront::PadFront(DesktopPlatform& thePlatform, const PaperKind& theKind, const PaperWindow& theWindow)
    : platform(thePlatform), kind(theKind), window(theWindow)
{
    fronts->setObjectName(QStringLiteral("PadFront"));
    fronts->addItem(tr("This form"));
    fronts->addItem(tr("Rows of a table..."));
    fronts->setItemData(tableFront, tr("Makes a page for each row; the columns name fields of the form"),
                        Qt::ToolTipRole);
    connect(fronts, &QComboBox::currentIndexChanged, this, &PadFront::Choose);
    connect(fronts, &QComboBox::activated, this, [this] {
        if (chosen == tableFront && fronts->currentIndex() == tableFront) {
            Choose();  // another table
        }
    });
}

void PadFront::Choose()
{
    if (fronts->currentIndex() == formFront) {
        chosen = formFront;
        table.reset();
        emit Changed();
        return;
    }
    const QString path = AskForFile();
    const QString why = path.isEmpty() ? QString() : Read(FolderItem(path.toStdString()));
    if (path.isEmpty() || stop || !why.isEmpty()) {
        const QSignalBlocker isNoChoice(fronts);
        fronts->setCurrentIndex(chosen);
    } else {
        chosen = tableFront;
        fronts->setItemText(tableFront, tr("%1...").arg(ToQt(table->name)));
        emit Changed();
    }
    if (!why.isEmpty()) {
        emit Refused(why);
    }
}

QString PadFront::AskForFile()
{
    QFileDialog dialog(fronts->window(), tr("Choose a Table"));
    GoToFolder(dialog, tableFolderKey);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters({QStringLiteral("CSV (*.csv *.tsv *.txt)"), tr("All files (*)")});
    if (platform.RunModal(dialog) != QDialog::Accepted) {
        return {};
    }
    KeepFolder(dialog, tableFolderKey);
    return dialog.selectedFiles().value(0);
}

QString PadFront::Read(const FolderItem& file)
{
    stop = false;
    isReading = true;
    emit ReadingChanged();
    const auto ended = qScopeGuard([this] {
        isReading = false;
        emit ReadingChanged();
    });
    QString why;
    platform.RunStoppable(stop, [&] {
        Turns turns([this] { platform.Yield(); });
        try {
            table = std::make_shared<const TablePages>(ReadTablePages(file, kind, window, turns));
        } catch (const TableError& error) {
            why = ToQt(error.message);
        } catch (const PageStopped&) {  // the choice stays as it was
        } catch (const std::bad_alloc&) {
            why = ToQt(Message("%1: %2", file.Name(), Message("there is not enough memory for the page")));
        }
    });
    return why;
}

}  // namespace linealis::desktop
