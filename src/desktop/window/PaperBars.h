#pragma once

#include "pipeline/page/PageWarning.h"

#include <QLabel>
#include <QScrollArea>
#include <QToolButton>
#include <QWidget>

class QProgressBar;
class QPushButton;

namespace linealis::desktop {

/// A scroll area that asks for the room of all it holds, and makes do with less.
class FormScrollArea final : public QScrollArea {
    Q_OBJECT

public:
    explicit FormScrollArea(QWidget* content);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {200, 120}; }
};

/// A row of buttons above the form: to the gallery, presets, undo, redo, reset.
class PaperTopBar final : public QWidget {
    Q_OBJECT

public:
    PaperTopBar();

    QToolButton* gallery;
    QToolButton* presets;  ///< opens a menu
    QToolButton* undo;
    QToolButton* redo;
    QToolButton* reset;

private:
    QToolButton* Add(const QString& text, const QString& name, const QString& tip);
};

/// What stands below form and page: the file, progress, and the buttons that do something with the page.
class PaperBottomBar final : public QWidget {
    Q_OBJECT

public:
    /// `file` is the form's group of that name, `wizard` whether there is a button for one.
    PaperBottomBar(QWidget* file, bool hasWizard);

    void ShowProgress(bool visible) const;

    QPushButton* wizard = nullptr;
    QProgressBar* progress;
    QPushButton* cancel;
    QPushButton* changeFile;
    QPushButton* print;
    QPushButton* generate;
};

/// Tells in a corner how much of the page will disappoint on paper, and lists it when it is clicked. Not there
/// while all is well.
class CheckButton final : public QToolButton {
    Q_OBJECT

public:
    CheckButton();

    void Show(const PageWarnings& warnings);

signals:
    /// A warning was chosen that comes from a control.
    void Chosen(const QString& control);
};

/// The line that tells what has just happened. A link in it is `linkActivated` of QLabel.
class StatusLine final : public QLabel {
    Q_OBJECT

public:
    StatusLine();

    /// Says a text, with links behind it: a name and what it is to activate.
    void Say(const QString& text, const QList<QPair<QString, QString>>& links = {});
};

}  // namespace linealis::desktop
