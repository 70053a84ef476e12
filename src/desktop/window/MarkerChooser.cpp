#include "desktop/window/MarkerChooser.h"

#include "check/PageCheck.h"
#include "desktop/system/Text.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QToolButton>

namespace linealis::desktop {

namespace {

constexpr int millisecondsToSettle = 100;

QString PathOf(const FolderItem& file)
{
    return ToQt(file.Path().string());
}

QToolButton* MakeButton(const char* name)
{
    auto* const button = new QToolButton;
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoRaise(true);
    return button;
}

}  // namespace

MarkerChooser::MarkerChooser(Platform& thePlatform, PaperWindow& theWindow)
    : platform(thePlatform), window(theWindow), choose(MakeButton("ChooseMarkers")),
      clear(MakeButton("ClearMarkers"))
{
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    row->addWidget(choose);
    row->addWidget(clear);
    clear->setText(QStringLiteral("\u2715"));
    clear->setAccessibleName(tr("Do without the marker file"));
    clear->setToolTip(clear->accessibleName());
    connect(choose, &QToolButton::clicked, this, &MarkerChooser::Ask);
    connect(clear, &QToolButton::clicked, this, [this] { Choose({}); });
    settling.setSingleShot(true);
    settling.setInterval(millisecondsToSettle);
    connect(&settling, &QTimer::timeout, this, &MarkerChooser::Follow);
    connect(&watcher, &QFileSystemWatcher::fileChanged, &settling, qOverload<>(&QTimer::start));
    connect(&watcher, &QFileSystemWatcher::directoryChanged, &settling, qOverload<>(&QTimer::start));
    Show();
}

void MarkerChooser::Ask()
{
    if (const FolderItem file = platform.GetOpenFolderItem(markerFileType); !file.IsEmpty()) {
        Choose(PathOf(file));
    }
}

void MarkerChooser::Choose(const QString& path)
{
    window.ChooseMarkerFile(path.isEmpty() ? FolderItem() : FolderItem(path.toStdString()));
    Watch();
    Show();
    emit Chosen();
}

void MarkerChooser::Watch()
{
    if (const QStringList watched = watcher.files() + watcher.directories(); !watched.isEmpty()) {
        watcher.removePaths(watched);
    }
    if (window.ChosenMarkerFile().IsEmpty()) {
        return;
    }
    const QFileInfo file(PathOf(window.ChosenMarkerFile()));
    watcher.addPath(file.absolutePath());
    if (file.exists()) {
        watcher.addPath(file.absoluteFilePath());
    }
    written = file.lastModified();
    size = file.size();
}

void MarkerChooser::Follow()
{
    const QFileInfo file(PathOf(window.ChosenMarkerFile()));
    if (file.lastModified() == written && file.size() == size) {
        return;  // something else in the folder has changed
    }
    Watch();
    if (window.ReadMarkerFile()) {
        Show();
        emit Changed();
    }
}

void MarkerChooser::Show()
{
    const auto nextLine = window.Markers().Lines();
    std::string line;
    for (lines = 0; nextLine(line);) {
        ++lines;
    }
    faults = MarkerFaults(window.Markers());
    const bool isChosen = !window.ChosenMarkerFile().IsEmpty();
    choose->setText(isChosen ? Words() : tr("Choose File..."));
    choose->setAccessibleName(isChosen ? tr("Marker file %1").arg(Words()) : tr("Choose a marker file"));
    choose->setToolTip(isChosen
                           ? tr("%1\nClick to choose another marker file").arg(PathOf(window.ChosenMarkerFile()))
                           : tr("Choose the marker file now instead of at each Generate. You can also drop "
                                "a .txt file on the page"));
    clear->setVisible(isChosen);
}

QString MarkerChooser::Words() const
{
    if (window.ChosenMarkerFile().IsEmpty()) {
        return {};
    }
    constexpr int longestName = 24;  // characters; a longer name loses its middle
    QString name = ToQt(window.ChosenMarkerFile().Name());
    if (name.size() > longestName) {
        name = name.left(longestName / 2) + QStringLiteral("\u2026") + name.right(longestName / 2 - 1);
    }
    if (!window.Markers().Error().IsEmpty()) {
        return tr("%1, not usable").arg(name);
    }
    return ToQt(
        Message(Plural("%1, %2 line", "%1, %2 lines"), static_cast<double>(lines), name.toStdString(), lines));
}

PageWarnings MarkerChooser::Warnings() const
{
    const std::string box = "CheckBoxMarkers";
    PageWarnings warnings;
    if (!window.Markers().Error().IsEmpty()) {
        warnings.push_back({"markers", box, Message("No markers are drawn: %1", window.Markers().Error())});
    }
    for (const Message& fault : faults) {
        warnings.push_back({"markers", box, fault});
    }
    return warnings;
}

}  // namespace linealis::desktop
