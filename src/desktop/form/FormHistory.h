#pragma once

#include "pipeline/document/PaperWindow.h"

#include <QUndoStack>

namespace linealis::desktop {

/// Implements undo and redo for a paper window. A step contains all changes of the form since the previous step.
/// If a step also changed the output or settings file, as loading settings does, undo restores that too.
class FormHistory final : public QObject {
    Q_OBJECT

public:
    explicit FormHistory(PaperWindow& theWindow, QObject* parent = nullptr);

    /// Makes a step with that name from all changes since the last step. Returns false, and makes no step, if the
    /// form has not changed apart from the name of the output file.
    bool Commit(const QString& name);

    /// Like Commit, with a name that describes the change of the control: "Top margin 0.5 → 1".
    void CommitChangeOf(const Control& control);

    /// Reverts the last step. Changes that are not yet a step become one first. Returns the name of the step, or
    /// an empty text if there is none.
    QString Undo();
    /// Repeats the step that was reverted last. Changes that are not yet a step become one first, which discards
    /// the steps to repeat. Returns the name of the step, or an empty text if there is none.
    QString Redo();
    /// Whether there is a step to revert, or a change that is not yet a step.
    bool CanUndo() const;
    bool CanRedo() const { return stack.canRedo(); }

    /// Returns the name of the step that Undo would revert, such as "Open notes.setx", or an empty text.
    QString UndoName() const { return stack.undoText(); }
    QString RedoName() const { return stack.redoText(); }

signals:
    /// Emitted when the step to undo or redo has changed.
    void Changed();

private:
    class Step;

    /// Puts the window into the state `to`. The output file and the settings file keep their current values unless
    /// they differ between `from` and `to`.
    void Move(const WindowState& from, const WindowState& to);

    PaperWindow& window;
    WindowState last;  ///< the state after the last step
    QUndoStack stack;
};

}  // namespace linealis::desktop
