#include "desktop/window/PaperView.h"

#include "desktop/dialogs/ExportPage.h"
#include "desktop/dialogs/PadDialog.h"
#include "desktop/dialogs/PadSheets.h"
#include "desktop/system/Text.h"
#include "exchange/FormJson.h"
#include "exchange/FormLink.h"

#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <functional>

namespace linealis::desktop {

void PaperView::Use(const QString& nothingDone, const PageWork::PageUse& use)
{
    Do([&] { return work.Use(nothingDone, use); });
}

void PaperView::Do(const std::function<QString()>& doWork)
{
    if (work.IsRunning()) {
        return;
    }
    FinishEdit();
    Say(doWork());
    if (closeWhenDone) {
        close();
    }
}

void PaperView::Export()
{
    if (work.IsRunning()) {
        return;
    }
    const auto runModal = [this](QDialog& dialog) { return platform.RunModal(dialog); };
    const PageFrame frame = window.ReadPage().frame;
    ExportChoice choice = AskForExport({frame.paperWidth, frame.paperHeight}, PageName(), this, runModal);
    if (choice.path.isEmpty()) {
        return;
    }
    choice.options.carried = CarriedForm(kind, window.form);
    Use(tr("nothing was exported"),
        [&](const DrawnPage& page, Turns& turns) { return ExportPage(page, choice, turns); });
}

void PaperView::PrintPad()
{
    if (work.IsRunning()) {
        return;
    }
    FinishEdit();
    PadDialog dialog(platform, kind, window, PageName(), this);
    const int result = platform.RunModal(dialog);
    if (result == PadDialog::printing) {
        Do([&] {
            return work.Do(tr("nothing was printed"), [&](Turns& turns) {
                return PrintWithDialog(PadSheets(dialog.Job(), turns), turns, PageName(),
                                       PrinterFactorsFile(platform.PreferencesFolder()), this,
                                       [this](QDialog& inner) { return platform.RunModal(inner); });
            });
        });
    } else if (!dialog.SavedFile().isEmpty()) {
        padFile = dialog.SavedFile();
        Say(tr("Wrote %1").arg(QFileInfo(padFile).fileName()), {{tr("Open"), QStringLiteral("openPad")}});
    }
}

void PaperView::CopyPage()
{
    Use(tr("nothing was copied"), [this](const DrawnPage& page, Turns& turns) {
        WriteOptions options;
        options.now = platform.Now();
        options.carried = CarriedForm(kind, window.form);
        QGuiApplication::clipboard()->setMimeData(PageForClipboard(page, options, turns).release());
        QStringList titles;
        for (const PageFormat& format : PageFormats()) {
            if (format.isPasted) {
                titles << ToQt(format.title);
            }
        }
        return tr("Copied the page, as %1").arg(titles.join(tr(", ")));
    });
}

void PaperView::CopyLink()
{
    FinishEdit();
    QGuiApplication::clipboard()->setText(QLatin1Char('#') + ToQt(FormLink(kind, window.form)));
    Say(tr("Copied the form as a link; paste it after the address of Linealis in a browser"));
}

}  // namespace linealis::desktop
