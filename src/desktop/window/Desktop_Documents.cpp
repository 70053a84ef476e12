#include "desktop/window/Desktop.h"

#include "desktop/system/Text.h"
#include "exchange/FormJson.h"

#include <QFileInfo>

namespace linealis::desktop {

void Desktop::OpenDocuments(const QStringList& files)
{
    waitingDocuments += files;
    ProceedSoon();
}

void Desktop::OpenDocument(const QString& path)
{
    if (path.startsWith(kindRequest)) {
        if (const PaperKind* const kind = FindPaperKind(path.mid(kindRequest.size()).toStdString())) {
            app.ShowEmptyPaper(*kind);
        }
        return;
    }
    const FolderItem file(std::filesystem::path(path.toStdString()));
    if (IsPicture(path)) {
        OpenPicture(file);
        return;
    }
    DoAsStep(tr("Open %1").arg(ToQt(file.Name())), [&] { app.Event_OpenDocument(file); });
}

void Desktop::OpenPicture(const FolderItem& file)
{
    try {
        const FormFile form = ReadFormFile(file);
        const PaperKind* const kind = FindPaperKind(form.kind);
        if (kind == nullptr) {
            throw FormError{Message("%1: carries the form of no kind of paper", file.Name())};
        }
        PaperView& view = ViewOf(*kind, app.ShowPaper(*kind));
        view.DoAsStep(tr("Open %1").arg(ToQt(file.Name())),
                      [&](PaperWindow& window) { linealis::LayOver(form, *kind, window.form); });
        view.Say(tr("Opened the form of %1").arg(ToQt(file.Name())));
    } catch (const FormError& error) {
        platform.MsgBox(error.message);
    } catch (const UnknownInput& input) {
        platform.MsgBox(Message("%1: unknown %2 '%3'", file.Name(), input.what, input.given));
    }
}

void Desktop::OpenSettings(const QStringList& files)
{
    for (const QString& path : files) {
        const FolderItem file(std::filesystem::path(path.toStdString()));
        if (IsPicture(path)) {
            OpenPicture(file);
            continue;
        }
        DoAsStep(tr("Open %1").arg(ToQt(file.Name())), [&] { app.OpenSettings(file); });
    }
}

void Desktop::AskForSettings()
{
    const QStringList files = platform.AskForSettings();
    for (const QString& path : files) {
        const QFileInfo file(path);
        if (!IsPicture(path) && FindPaperKindByExtension(file.suffix().toStdString()) == nullptr) {
            platform.MsgBox(Message("%1 is not a settings file", file.fileName().toStdString()));
        }
    }
    if (!quitting) {  // the user may have quit the program while a message was open
        OpenSettings(files);
    }
}

}  // namespace linealis::desktop
