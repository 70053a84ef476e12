#include "desktop/window/PaperBars.h"

#include "desktop/system/Text.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <algorithm>

namespace linealis::desktop {

namespace {

constexpr int progressWidth = 150;  // pixels

QPushButton* AddButton(QHBoxLayout& row, const QString& text, const QString& name, const QString& tip)
{
    auto* const button = new QPushButton(text);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAutoDefault(false);
    row.addWidget(button, 0, Qt::AlignBottom);
    return button;
}

}  // namespace

FormScrollArea::FormScrollArea(QWidget* content)
{
    setWidget(content);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
}

QSize FormScrollArea::sizeHint() const
{
    // Before the first show, the parts have no style yet, and an outer layout does not know of changes of the
    // layouts inside it. The inner ones must come first; findChildren lists them last.
    const QList<QWidget*> parts = widget()->findChildren<QWidget*>();
    for (auto part = parts.rbegin(); part != parts.rend(); ++part) {
        (*part)->ensurePolished();
        if (QLayout* const inner = (*part)->layout()) {
            inner->activate();
        }
    }
    QLayout& content = *widget()->layout();
    content.activate();
    const QSize size = content.totalSizeHint();
    const int height = content.hasHeightForWidth() ? content.totalHeightForWidth(size.width()) : 0;
    return {size.width() + verticalScrollBar()->sizeHint().width(), std::max(size.height(), height)};
}

PaperTopBar::PaperTopBar()
{
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(8, 4, 8, 0);
    row->setSpacing(2);
    gallery = Add(ToolIcon::Gallery, tr("Gallery"), QStringLiteral("ToolGallery"), tr("Show all kinds of paper"));
    presets = Add(ToolIcon::Presets, tr("Presets"), QStringLiteral("ToolPresets"),
                  tr("Choose a preset from pictures; the arrow opens the menu"));
    presets->setPopupMode(QToolButton::MenuButtonPopup);
    undo = Add(ToolIcon::Undo, tr("Undo"), QStringLiteral("ToolUndo"), {});
    redo = Add(ToolIcon::Redo, tr("Redo"), QStringLiteral("ToolRedo"), {});
    reset = Add(ToolIcon::Reset, tr("Reset"), QStringLiteral("ToolReset"), tr("Reset the form to its defaults"));
    row->addStretch(1);
}

QToolButton* PaperTopBar::Add(ToolIcon icon, const QString& text, const QString& name, const QString& tip)
{
    auto* const button = new QToolButton;
    button->setIcon(MakeToolIcon(icon));
    button->setText(text);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);  // keep the focus in the form; the menus offer the same to the keyboard
    layout()->addWidget(button);
    return button;
}

PaperBottomBar::PaperBottomBar(QWidget* file, bool hasWizard, bool hasRangeWizard)
{
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(8, 0, 8, 4);
    row->addWidget(file, 1);
    if (hasWizard) {
        wizard = AddButton(*row, tr("Easy Graph Wizard"), QStringLiteral("PushButtonEasyWizard"), {});
    }
    if (hasRangeWizard) {
        dataRange = AddButton(*row, tr("From &Data Range..."), QStringLiteral("PushButtonDataRange"),
                              tr("Fit the axes to the smallest and largest values of your data"));
    }
    progress = new QProgressBar;
    progress->setRange(0, 0);
    progress->setFixedWidth(progressWidth);
    progress->setObjectName(QStringLiteral("Progress"));
    row->addWidget(progress, 0, Qt::AlignBottom);
    cancel = AddButton(*row, tr("Cancel"), QStringLiteral("PushButtonCancel"), tr("Stop the page (Escape)"));
    changeFile = AddButton(*row, tr("&Change File..."), QStringLiteral("PushButtonChangeFile"),
                           tr("Choose another file for the page"));
    print =
        AddButton(*row, tr("P&rint..."), QStringLiteral("PushButtonPrint"), tr("Print the page at its true size"));
    generate = AddButton(*row, tr("&Generate"), QStringLiteral("PushButtonGenerate"),
                         tr("Make the page. Hold Shift to choose another file"));
    generate->setDefault(true);
    ShowProgress(false);
}

void PaperBottomBar::ShowProgress(bool visible) const
{
    progress->setVisible(visible);
    cancel->setVisible(visible);
}

CheckButton::CheckButton()
{
    setObjectName(QStringLiteral("CheckButton"));
    setIcon(MakeToolIcon(ToolIcon::Warning));
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setAutoRaise(true);
    setPopupMode(QToolButton::InstantPopup);
    setFocusPolicy(Qt::StrongFocus);
    setMenu(new QMenu(this));
    hide();
}

void CheckButton::Show(const PageWarnings& warnings)
{
    menu()->clear();
    QStringList texts;
    for (const PageWarning& warning : warnings) {
        texts << ToQt(warning.text);
        QAction* const action = menu()->addAction(MenuText(texts.back()));
        if (!warning.control.empty()) {
            connect(action, &QAction::triggered, this,
                    [this, control = ToQt(warning.control)] { emit Chosen(control); });
        }
    }
    setText(ToQt(Message(Plural("%1 thing to check", "%1 things to check"), static_cast<double>(texts.size()),
                         texts.size())));
    setToolTip(texts.join(QLatin1Char('\n')));
    setAccessibleDescription(toolTip());
    setVisible(!texts.isEmpty());
}

StatusLine::StatusLine()
{
    setObjectName(QStringLiteral("StatusLine"));
    setTextFormat(Qt::RichText);
    setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    // Letters of a text may come from a font that is taller than that of the window, which must not squeeze the
    // form.
    setText(QStringLiteral("Linealis ") + tr("Undo"));
    setMinimumHeight(sizeHint().height());
    clear();
}

void StatusLine::Say(const QString& text, const QList<QPair<QString, QString>>& links)
{
    QString html = text.toHtmlEscaped();
    for (const auto& [name, target] : links) {
        html += QStringLiteral(" - <a href=\"%1\">%2</a>").arg(target.toHtmlEscaped(), name.toHtmlEscaped());
    }
    setText(html);
    setToolTip(text);
    setAccessibleName(text);
    QAccessibleEvent event(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

}  // namespace linealis::desktop
