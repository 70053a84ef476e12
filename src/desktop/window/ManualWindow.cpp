#include "desktop/window/ManualWindow.h"

#include "desktop/system/WindowLanguage.h"
#include "desktop/system/WindowPlace.h"
#include "desktop/system/WindowSettings.h"

#include <QAction>
#include <QFile>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QSplitter>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>

namespace linealis::desktop {

namespace {

const QString geometryKey = QStringLiteral("windows/manual/geometry");

/// Returns the address of the manual in the language of the windows; in English if it is not translated.
QUrl AddressOfManual()
{
    const QString translated = QStringLiteral(":/manual/manual.%1.html").arg(InstalledLanguage());
    return QUrl(QStringLiteral("qrc") +
                (QFile::exists(translated) ? translated : QStringLiteral(":/manual/manual.html")));
}

/// Returns the address of a chapter. Back and Forward work only if the text goes to an address instead of
/// scrolling.
QUrl ChapterAddress(const QString& anchor)
{
    QUrl chapter = AddressOfManual();
    chapter.setFragment(anchor);
    return chapter;
}

/// Returns the anchor of a heading, as scripts/make-manual makes it: its ASCII letters without accents, with
/// hyphens.
QString AnchorOf(const QString& heading)
{
    static const QRegularExpression noLetters(QStringLiteral("[^\\w\\s-]|[^\\x00-\\x7F]"));
    static const QRegularExpression blanks(QStringLiteral("[-\\s]+"));
    const QString letters = heading.normalized(QString::NormalizationForm_KD).remove(noLetters);
    return letters.trimmed().toLower().replace(blanks, QStringLiteral("-"));
}

}  // namespace

ManualWindow::ManualWindow() : text(new QTextBrowser), chapters(new QListWidget)
{
    setObjectName(QStringLiteral("manual"));
    setWindowTitle(tr("Linealis Manual"));
    auto* const content = new QWidget;
    auto* const column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(MakeBar());
    auto* const middle = new QSplitter;
    middle->addWidget(chapters);
    middle->addWidget(text);
    middle->setStretchFactor(1, 1);
    column->addWidget(middle, 1);
    setCentralWidget(content);

    text->setObjectName(QStringLiteral("ManualText"));
    text->setAccessibleName(tr("Manual"));
    text->setOpenLinks(true);
    text->setOpenExternalLinks(true);
    text->document()->setDefaultStyleSheet(
        QStringLiteral("td, th { padding: 3px 8px; } code { font-family: monospace; }"));
    text->document()->setDocumentMargin(12.0);
    text->setSource(AddressOfManual());
    chapters->setObjectName(QStringLiteral("ManualChapters"));
    chapters->setAccessibleName(tr("Chapters"));
    ListChapters();
    connect(chapters, &QListWidget::itemActivated, this, [this](const QListWidgetItem* item) {
        text->setSource(ChapterAddress(item->data(Qt::UserRole).toString()));
    });
    connect(chapters, &QListWidget::itemClicked, chapters, &QListWidget::itemActivated);

    const auto add = [this](const QKeySequence& key, auto act) {
        auto* const action = new QAction(this);
        action->setShortcut(key);
        connect(action, &QAction::triggered, this, act);
        addAction(action);
    };
    add(QKeySequence::Find, [this] {
        search->setFocus();
        search->selectAll();
    });
    add(Qt::Key_F3, [this] { Find(false); });
    add(Qt::SHIFT | Qt::Key_F3, [this] { Find(true); });
    add(QKeySequence(QStringLiteral("Ctrl++")), [this] { Zoom(zoom + 1); });
    add(QKeySequence(QStringLiteral("Ctrl+-")), [this] { Zoom(zoom - 1); });
    add(QKeySequence(QStringLiteral("Ctrl+0")), [this] { Zoom(0); });
    add(QKeySequence::Close, [this] { close(); });

    resize(QSize(940, 720).boundedTo(screen()->availableSize() - windowDecorations));
    restoreGeometry(WindowSettings().value(geometryKey).toByteArray());
    BringOnScreen(*this);
}

QWidget* ManualWindow::MakeBar()
{
    auto* const bar = new QWidget;
    auto* const row = new QHBoxLayout(bar);
    row->setContentsMargins(6, 4, 6, 4);
    const auto button = [&](const QString& caption, const QString& name, auto act) {
        auto* const made = new QToolButton;
        made->setText(caption);
        made->setObjectName(name);
        made->setAutoRaise(true);
        connect(made, &QToolButton::clicked, this, act);
        row->addWidget(made);
    };
    button(tr("Back"), QStringLiteral("ManualBack"), [this] { text->backward(); });
    button(tr("Forward"), QStringLiteral("ManualForward"), [this] { text->forward(); });
    search = new QLineEdit;
    search->setObjectName(QStringLiteral("ManualSearch"));
    search->setPlaceholderText(tr("Search the manual"));
    search->setAccessibleName(search->placeholderText());
    search->setClearButtonEnabled(true);
    row->addWidget(search, 1);
    connect(search, &QLineEdit::returnPressed, this, [this] { Find(false); });
    button(tr("Previous"), QStringLiteral("ManualPrevious"), [this] { Find(true); });
    button(tr("Next"), QStringLiteral("ManualNext"), [this] { Find(false); });
    result = new QLabel;
    result->setObjectName(QStringLiteral("ManualResult"));
    row->addWidget(result);
    return bar;
}

void ManualWindow::ListChapters()
{
    for (QTextBlock block = text->document()->begin(); block.isValid(); block = block.next()) {
        const int level = block.blockFormat().headingLevel();
        if (level == 2 || level == 3) {
            const QString indent(level == 3 ? 4 : 0, QLatin1Char(' '));
            auto* const item = new QListWidgetItem(indent + block.text(), chapters);
            item->setData(Qt::UserRole, AnchorOf(block.text()));
        }
    }
}

void ManualWindow::ShowChapter(const QString& heading)
{
    const QString anchor = AnchorOf(heading);
    for (int i = 0; i < chapters->count(); ++i) {
        if (chapters->item(i)->data(Qt::UserRole).toString() == anchor) {
            chapters->setCurrentRow(i);
            text->setSource(ChapterAddress(anchor));
            return;
        }
    }
    text->setSource(AddressOfManual());
    text->verticalScrollBar()->setValue(0);
}

void ManualWindow::Zoom(int steps)
{
    constexpr int farthest = 5;
    steps = std::clamp(steps, -farthest, 3 * farthest);
    text->zoomIn(steps - zoom);
    zoom = steps;
}

void ManualWindow::Find(bool backwards)
{
    const QString wanted = search->text();
    const auto direction = backwards ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    if (wanted.isEmpty() || text->find(wanted, direction)) {
        result->clear();
        return;
    }
    // Wrap around, but keep the cursor if there is no hit at all.
    const QTextCursor before = text->textCursor();
    text->moveCursor(backwards ? QTextCursor::End : QTextCursor::Start);
    if (text->find(wanted, direction)) {
        result->setText(tr("Continued from the other end"));
    } else {
        text->setTextCursor(before);
        result->setText(tr("Not found"));
    }
}

void ManualWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && search->hasFocus() && !search->text().isEmpty()) {
        search->clear();
        result->clear();
        text->setFocus();
    } else if (event->key() == Qt::Key_Escape) {
        close();
    } else {
        QMainWindow::keyPressEvent(event);
    }
}

void ManualWindow::closeEvent(QCloseEvent* event)
{
    WindowSettings().setValue(geometryKey, saveGeometry());
    QMainWindow::closeEvent(event);
    hide();
    emit Closed();
}

}  // namespace linealis::desktop
