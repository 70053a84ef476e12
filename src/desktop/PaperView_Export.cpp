#include "desktop/PaperView.h"

#include "desktop/ExportPage.h"
#include "desktop/Text.h"
#include "exchange/FormJson.h"
#include "pipeline/PageJob.h"

#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>

namespace linealis::desktop {

std::optional<DrawnPage> PaperView::Draw(const QString& nothingDone, const PageUse& use)
{
    FinishEdit();
    DrawnPage page{window.ReadPage().frame, {}};
    bool isDone = false;
    Work([&] {
        try {
            page.content = window.DrawPage();
            use(page);
            isDone = true;
        } catch (const PageStopped&) {
            Say(tr("Cancelled; %1").arg(nothingDone));
        } catch (const PageGivenUp& givenUp) {
            const QString sentence = nothingDone.left(1).toUpper() + nothingDone.mid(1);
            Say(tr("%1: %2").arg(sentence, QString::fromUtf8(givenUp.reason)));
        }
    });
    return isDone ? std::optional(std::move(page)) : std::nullopt;
}

void PaperView::Export()
{
    if (generating) {
        return;
    }
    const auto runModal = [this](QDialog& dialog) { return platform.RunModal(dialog); };
    const PageFrame frame = window.ReadPage().frame;
    const FolderItem& output = window.OutputFile();
    const QString name =
        output.IsEmpty() ? ToQt(kind.galleryTitle) : QFileInfo(ToQt(output.Name())).completeBaseName();
    ExportChoice choice = AskForExport({frame.paperWidth, frame.paperHeight}, name, this, runModal);
    if (choice.path.isEmpty()) {
        return;
    }
    choice.png.carried = CarriedForm(kind, window.form);
    choice.png.turn = [this] { platform.Yield(); };
    QString said;
    if (Draw(tr("nothing was exported"), [&](const DrawnPage& page) { said = ExportPage(page, choice); })) {
        Say(said);
    }
    if (closeWhenDone) {
        close();
    }
}

void PaperView::CopyPage()
{
    if (generating) {
        return;
    }
    if (const auto page = Draw(tr("nothing was copied"))) {
        const std::string pdf = FileBytesOf(window.ReadPage(), platform.Now());
        QGuiApplication::clipboard()->setMimeData(PageForClipboard(*page, pdf, CarriedForm(kind, window.form)));
        Say(tr("Copied the page, as PDF, SVG and PNG"));
    }
    if (closeWhenDone) {
        close();
    }
}

}  // namespace linealis::desktop
