#include "desktop/system/DesktopPlatform.h"

#include "desktop/system/HttpFetch.h"
#include "desktop/system/Text.h"
#include "desktop/system/WindowSettings.h"
#include "exchange/PageFormats.h"
#include "kinds/PaperKinds.h"

#include <QApplication>
#include <QCheckBox>
#include <QColorDialog>
#include <QDate>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QLocale>
#include <QOperatingSystemVersion>
#include <QPushButton>
#include <QScopeGuard>
#include <QStandardPaths>
#include <QTimer>
#include <QUrl>

namespace linealis::desktop {

namespace {

/// How often long work processes events. Without pending events, that takes far less time than this.
constexpr int millisecondsPerTurn = 10;

/// The delay before a fetch. Initializing Qt's network code takes as long as painting a window, so the window
/// comes first.
constexpr int millisecondsToFetch = 250;

FolderItem ToItem(const QString& path)
{
    return path.isEmpty() ? FolderItem() : FolderItem(std::filesystem::path(path.toStdString()));
}

QString ToPath(const FolderItem& file)
{
    return ToQt(file.Path().string());
}

/// Returns the title of a file dialog.
QString TitleFor(const FileType& type, QFileDialog::AcceptMode mode)
{
    if (type == pdfFileType) {
        return DesktopPlatform::tr("Save Page as PDF");
    }
    if (type.extension.empty()) {
        return DesktopPlatform::tr("Choose a Marker File");
    }
    return mode == QFileDialog::AcceptSave ? DesktopPlatform::tr("Save Settings")
                                           : DesktopPlatform::tr("Open Settings");
}

constexpr const char* const settingsFolderKey = "folders/settings";  ///< for settings of any kind of paper

/// Returns the key of the folder that the user last chose for a type of file.
QString FolderKey(const FileType& type)
{
    return QStringLiteral("folders/") + ToQt(type.extension.empty() ? type.name : type.extension);
}

/// Returns the name patterns of the files that can carry a form, such as "*.svg".
QStringList CarrierPatterns()
{
    QStringList patterns;
    for (const PageFormat& format : PageFormats()) {
        if (format.givesForm) {
            patterns << QStringLiteral("*.") + ToQt(format.name);
        }
    }
    return patterns;
}

/// Sets up a file dialog for the type. A type without an extension accepts every file.
void Prepare(QFileDialog& dialog, const FileType& type, QFileDialog::AcceptMode mode, const QString& suggestedName)
{
    dialog.setWindowTitle(TitleFor(type, mode));
    dialog.setAcceptMode(mode);
    dialog.setFileMode(mode == QFileDialog::AcceptSave ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    if (!type.extension.empty()) {
        const QString extension = ToQt(type.extension);
        const QString name = type.extension == "pdf" ? Translated("PDF documents") : Translated("Settings");
        QStringList filters = {QStringLiteral("%1 (*.%2)").arg(name, extension)};
        if (mode == QFileDialog::AcceptOpen) {
            filters << Translated("Pages that carry their form (%1)").arg(CarrierPatterns().join(QLatin1Char(' ')));
        }
        dialog.setNameFilters(filters);
        dialog.setDefaultSuffix(extension);
    }
    if (!suggestedName.isEmpty()) {
        dialog.selectFile(suggestedName);
    }
}

}  // namespace

bool IsPicture(const QString& path)
{
    return IsNameOfCarrier(path.toStdString());
}

DesktopPlatform::DesktopPlatform()
{
    sinceLastTurn.start();
}

void DesktopPlatform::MsgBox(const Message& text)
{
    ShowMessage(QMessageBox::Information, text, {});
}

void DesktopPlatform::MsgBoxUnlessHidden(const Message& text, const Message& explanation, std::string_view name)
{
    WindowSettings settings;
    const QString key = QStringLiteral("hiddenMessages/") + ToQt(name);
    if (settings.value(key).toBool()) {
        return;
    }
    if (ShowMessage(QMessageBox::Information, text, ToQt(explanation), tr("Do not show again"))) {
        settings.setValue(key, true);
    }
}

bool DesktopPlatform::ShowMessage(QMessageBox::Icon icon, const Message& text, const QString& more,
                                  const QString& choice)
{
    QMessageBox box(icon, QStringLiteral("Linealis"), ToQt(text), QMessageBox::Ok, QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(more);
    if (!choice.isEmpty()) {
        box.setCheckBox(new QCheckBox(choice));
    }
    RunModal(box);
    return box.checkBox() != nullptr && box.checkBox()->isChecked();
}

FolderItem DesktopPlatform::AskForFile(const FileType& type, QFileDialog::AcceptMode mode,
                                       const QString& suggestedName)
{
    QFileDialog dialog(QApplication::activeWindow());
    GoToFolder(dialog, FolderKey(type));
    QString name = suggestedName;
    if (const FileAsker* const asker = whoAsks ? whoAsks() : nullptr) {
        if (const QString own = asker->ProposedName(); mode == QFileDialog::AcceptSave && !own.isEmpty()) {
            name = type == pdfFileType ? own + QStringLiteral(".pdf") : own;
        }
        if (const QString folder = asker->SettingsFolder(); type.extension.empty() && !folder.isEmpty()) {
            dialog.setDirectory(folder);  // marker files are usually next to the settings file
        }
    }
    Prepare(dialog, type, mode, name);
    if (RunModal(dialog) != QDialog::Accepted) {
        return {};
    }
    KeepFolder(dialog, FolderKey(type));
    if (FindPaperKindByExtension(type.extension) != nullptr) {
        KeepFolder(dialog, QString::fromLatin1(settingsFolderKey));
    }
    const QString path = dialog.selectedFiles().value(0);
    // The caller can only load a settings file. A picture is opened by whoever handles the signal.
    if (mode == QFileDialog::AcceptOpen && !type.extension.empty() && IsPicture(path)) {
        emit PictureChosen(path);
        return {};
    }
    return ToItem(path);
}

QStringList DesktopPlatform::AskForSettings(QFileDialog::FileMode howMany)
{
    QStringList patterns;
    for (const PaperKind& kind : PaperKinds()) {
        patterns << QStringLiteral("*.") + ToQt(kind.settingsType.extension);
    }
    QFileDialog dialog(QApplication::activeWindow(), tr("Open Settings"));
    GoToFolder(dialog, QString::fromLatin1(settingsFolderKey));
    dialog.setFileMode(howMany);
    patterns << CarrierPatterns();
    dialog.setNameFilter(Translated("Settings (%1)").arg(patterns.join(QLatin1Char(' '))));
    if (RunModal(dialog) != QDialog::Accepted) {
        return {};
    }
    KeepFolder(dialog, QString::fromLatin1(settingsFolderKey));
    return dialog.selectedFiles();
}

MessageDialog::Button DesktopPlatform::ShowModal(const MessageDialog& dialog)
{
    QMessageBox box(QMessageBox::Information, QStringLiteral("Linealis"), ToQt(dialog.message),
                    QMessageBox::NoButton, QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    QPushButton* const action = box.addButton(ToQt(dialog.actionButton), QMessageBox::AcceptRole);
    box.setDefaultButton(action);
    QAbstractButton* cancel = nullptr;
    if (!dialog.cancelButton.IsEmpty()) {
        cancel = box.addButton(ToQt(dialog.cancelButton), QMessageBox::RejectRole);
        box.setEscapeButton(cancel);
    }
    QAbstractButton* alternate = nullptr;
    if (!dialog.alternateActionButton.IsEmpty()) {
        alternate = box.addButton(ToQt(dialog.alternateActionButton), QMessageBox::DestructiveRole);
    }
    RunModal(box);
    const QAbstractButton* const clicked = box.clickedButton();
    if (clicked == action) {
        return MessageDialog::Button::Action;
    }
    return clicked != nullptr && clicked == alternate ? MessageDialog::Button::Alternate
                                                      : MessageDialog::Button::Cancel;
}

void DesktopPlatform::ShowFileError(const FolderItem& /*file*/, const Message& text, const Message& reason)
{
    // Some messages contain the reason already.
    const bool said = ToQt(text).contains(ToQt(reason));
    ShowMessage(QMessageBox::Warning, text, said ? QString() : ToQt(reason));
}

void DesktopPlatform::Note(const Message& text)
{
    note = ToQt(text);
}

FolderItem DesktopPlatform::GetSaveFolderItem(const FileType& type, const std::string& suggestedName)
{
    return AskForFile(type, QFileDialog::AcceptSave, ToQt(suggestedName));
}

FolderItem DesktopPlatform::GetOpenFolderItem(const FileType& type)
{
    return AskForFile(type, QFileDialog::AcceptOpen, {});
}

bool DesktopPlatform::ShiftKey() const
{
    return QApplication::keyboardModifiers().testFlag(Qt::ShiftModifier);
}

bool DesktopPlatform::SelectColor(Color& color, const Message& title)
{
    QColorDialog dialog(QColor(color.red, color.green, color.blue), QApplication::activeWindow());
    dialog.setWindowTitle(ToQt(title));
    if (RunModal(dialog) != QDialog::Accepted) {
        return false;
    }
    const QColor chosen = dialog.selectedColor();
    color = {static_cast<std::uint8_t>(chosen.red()), static_cast<std::uint8_t>(chosen.green()),
             static_cast<std::uint8_t>(chosen.blue())};
    return true;
}

bool DesktopPlatform::Launch(const FolderItem& file)
{
    return QDesktopServices::openUrl(QUrl::fromLocalFile(ToPath(file)));
}

void DesktopPlatform::ShowURL(const std::string& url)
{
    QDesktopServices::openUrl(QUrl(ToQt(url)));
}

void DesktopPlatform::FetchInBackground(const std::string& url,
                                        std::function<void(const std::string& page)> onReply)
{
    constexpr int millisecondsPerSecond = 1000;
    static constexpr FetchLimits limits{replySeconds * millisecondsPerSecond, longestReply, longestAnswer};
    QTimer::singleShot(millisecondsToFetch, this, [this, url = QUrl(ToQt(url)), onReply = std::move(onReply)] {
        new HttpFetch(url, limits, onReply, this);
    });
}

std::optional<std::int64_t> DesktopPlatform::SystemVersion() const
{
    const QOperatingSystemVersion system = QOperatingSystemVersion::current();
    if (system.type() != QOperatingSystemVersion::MacOS) {
        return std::nullopt;
    }
    // Each decimal digit becomes a hexadecimal one: 10.6.8 is 0x1068.
    const int major = system.majorVersion();
    return (major / 10 * 16 + major % 10) * 256 + system.minorVersion() * 16 + system.microVersion();
}

FolderItem DesktopPlatform::PreferencesFolder() const
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
    QDir().mkpath(folder);
    return ToItem(folder);
}

FolderItem DesktopPlatform::TemporaryFolder() const
{
    return ToItem(QDir::tempPath());
}

std::string DesktopPlatform::ShortDate() const
{
    return QLocale().toString(QDate::currentDate(), QLocale::ShortFormat).toStdString();
}

void DesktopPlatform::RunStoppable(const bool& stop, const std::function<void()>& work)
{
    stops.push_back(&stop);
    const auto ended = qScopeGuard([this] {
        stops.pop_back();
        EmitIfIdle();
    });
    work();
}

int DesktopPlatform::RunModal(QDialog& dialog)
{
    ++dialogs;
    const auto ended = qScopeGuard([this] {
        --dialogs;
        EmitIfIdle();
    });
    return dialog.exec();
}

void DesktopPlatform::EmitIfIdle()
{
    if (!HasDialog()) {
        emit Idle();
    }
}

void DesktopPlatform::Yield()
{
    if (stops.empty()) {
        return;
    }
    if (sinceLastTurn.elapsed() >= millisecondsPerTurn) {
        QCoreApplication::processEvents();
        sinceLastTurn.restart();
    }
    if (*stops.back()) {  // set by one of these events, or while the page showed a dialog
        throw PageStopped();
    }
}

}  // namespace linealis::desktop
