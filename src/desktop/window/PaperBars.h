#pragma once

#include "desktop/form/ToolIcon.h"
#include "pipeline/page/PageWarning.h"

#include <QLabel>
#include <QScrollArea>
#include <QToolButton>
#include <QWidget>

class QProgressBar;
class QPushButton;

namespace linealis::desktop {

/// A scroll area that prefers the size of its whole content, but can be smaller.
class FormScrollArea final : public QScrollArea {
    Q_OBJECT

public:
    explicit FormScrollArea(QWidget* content);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {200, 120}; }
};

/// The row of buttons above the form: gallery, presets, undo, redo, reset.
class PaperTopBar final : public QWidget {
    Q_OBJECT

public:
    PaperTopBar();

    QToolButton* gallery;
    QToolButton* presets;  ///< opens the picker; its arrow opens a menu
    QToolButton* undo;
    QToolButton* redo;
    QToolButton* reset;

private:
    QToolButton* Add(ToolIcon icon, const QString& text, const QString& name, const QString& tip);
};

/// The row below the form and the page: the output file, the progress, and the buttons that act on the page.
class PaperBottomBar final : public QWidget {
    Q_OBJECT

public:
    /// `file` is the group Group::File of the form. `hasWizard` and `hasRangeWizard` add buttons for the wizards.
    PaperBottomBar(QWidget* file, bool hasWizard, bool hasRangeWizard);

    /// Shows or hides the progress bar and the Cancel button.
    void ShowProgress(bool visible) const;

    QPushButton* wizard = nullptr;     ///< null if there is no wizard
    QPushButton* dataRange = nullptr;  ///< null if there is no wizard for ranges of data
    QProgressBar* progress;
    QPushButton* cancel;
    QPushButton* changeFile;
    QPushButton* print;
    QPushButton* generate;
};

/// Shows the number of warnings about the page, and lists them in a menu when clicked. Hidden while there are
/// none.
class CheckButton final : public QToolButton {
    Q_OBJECT

public:
    CheckButton();

    void Show(const PageWarnings& warnings);

signals:
    /// Emitted when the user has chosen a warning that is caused by a control, with the name of the control.
    void Chosen(const QString& control);
};

/// Shows in one line what has just happened. A click on a link emits QLabel::linkActivated with its target.
class StatusLine final : public QLabel {
    Q_OBJECT

public:
    StatusLine();

    /// Shows a plain text, followed by links, each given by its text and its target. Also announces the text to
    /// screen readers.
    void Say(const QString& text, const QList<QPair<QString, QString>>& links = {});
};

}  // namespace linealis::desktop
