#include "desktop/window/PaperView.h"

#include "app/OwnPresets.h"
#include "desktop/form/FormView.h"
#include "desktop/system/Text.h"
#include "desktop/window/MarkerChooser.h"
#include "desktop/window/PaperBars.h"

#include <QFileInfo>

namespace linealis::desktop {

void PaperView::ChangeFile()
{
    window.ChooseOutputFile();
    changeDelay.start();
}

void PaperView::MakeMarkerChooser()
{
    if (!kind.hasMarkers) {
        return;
    }
    markers = new MarkerChooser(platform, window);
    form->AddBeside(window.form.Get<CheckBox>("CheckBoxMarkers"), markers);
    connect(markers, &MarkerChooser::Chosen, this, &PaperView::MarkersChosen);
    connect(markers, &MarkerChooser::Changed, &changeDelay, qOverload<>(&QTimer::start));
}

void PaperView::MarkersChosen()
{
    changeDelay.start();
    if (window.ChosenMarkerFile().IsEmpty()) {
        Say(tr("Generate asks for the marker file again"));
        return;
    }
    DoAsStep(tr("Add Markers"), [](PaperWindow& shown) {
        auto& box = shown.form.Get<CheckBox>("CheckBoxMarkers");
        if (!box.Value()) {
            box.Click(true);
        }
    });
    Say(tr("Markers from %1").arg(markers->Words()));
}

void PaperView::BringBack()
{
    const FolderItem left = OwnPresets(platform.PreferencesFolder()).LeftFile(kind);
    const QString title = tr("As I Left It");
    if (DoAsStep(title, [&](PaperWindow& shown) {
            linealis::LayOver(OwnPreset{title.toStdString(), left}, shown, platform);
        })) {
        Say(tr("The form is back as you last left it"), {{tr("Undo"), QStringLiteral("undo")}});
    }
}

void PaperView::OfferToBringBack()
{
    const FolderItem left = OwnPresets(platform.PreferencesFolder()).LeftFile(kind);
    // Do not offer this if the form has been changed or loaded, or if it would replace another message.
    const bool isFresh = window.OurFolderItem().IsEmpty() && !history->CanUndo() && status->text().isEmpty();
    if (!isFresh || !left.Exists()) {
        return;
    }
    const auto closed = MakeWindow(kind, platform);
    if (!closed->LayOver(left.OpenAsBinaryFile()) && closed->form.State() != window.form.State()) {
        Say(tr("You last left this form with other values"), {{tr("As I Left It"), QStringLiteral("bringBack")}});
    }
}

QString PaperView::Title() const
{
    const auto* const title = window.form.Find<TextField>("EditTitle");
    return title == nullptr ? QString() : ToQt(title->Text());
}

QString PaperView::ProposedName() const
{
    const QString title = Title();
    // A title that the user has entered is the best name. A given one is the same for many pages.
    return AsFileName(title == givenTitle || title.isEmpty() ? presetName : title);
}

QString PaperView::SettingsFolder() const
{
    return ToQt(window.OurFolderItem().Path().parent_path().string());
}

QString PaperView::PageName() const
{
    const FolderItem& output = window.OutputFile();
    const QString name = output.IsEmpty() ? ProposedName() : QFileInfo(ToQt(output.Name())).completeBaseName();
    return name.isEmpty() ? Translated(kind.galleryTitle) : name;
}

bool PaperView::MayClose()
{
    FinishEdit();
    if (!window.IsModified()) {
        return true;
    }
    MessageDialog dialog;
    dialog.message = Message("Save the changes to %1?", window.OurFolderItem().Name());
    dialog.actionButton = Message("Save");
    dialog.cancelButton = Message("Cancel");
    dialog.alternateActionButton = Message("Discard");
    switch (platform.ShowModal(dialog)) {
    case MessageDialog::Button::Action: {
        const bool saved = window.FileSave_Action();
        ChangedOutside({});
        return saved;
    }
    case MessageDialog::Button::Alternate:
        return true;
    case MessageDialog::Button::Cancel:
        break;
    }
    return false;
}

void PaperView::TellHowToSave()
{
    Say(tr("This form has no settings file yet"), {{tr("Save As..."), QStringLiteral("saveAs")}});
}

}  // namespace linealis::desktop
