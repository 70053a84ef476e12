#pragma once

#include "pipeline/document/PaperWindow.h"

#include <QUndoStack>

namespace linealis::desktop {

/// Undo and redo over the whole of a paper window: one step for what has changed of its form since the last one.
/// A step that brought another output or settings file, as a load does, takes that back too.
class FormHistory final : public QObject {
    Q_OBJECT

public:
    explicit FormHistory(PaperWindow& theWindow, QObject* parent = nullptr);

    /// Makes one step, of that name, of what has changed since the last. Returns false if nothing has.
    bool Commit(const QString& name);

    /// Makes one step of what has changed since the last, named after a change of that control: "Top margin 0.5 →
    /// 1".
    void CommitChangeOf(const Control& control);

    /// Takes the last step back, or does it again. Returns its name; empty if there is none.
    QString Undo();
    QString Redo();
    bool CanUndo() const;
    bool CanRedo() const { return stack.canRedo(); }

    /// "Open notes.setx": what Undo would take back; empty if nothing.
    QString UndoName() const { return stack.undoText(); }
    QString RedoName() const { return stack.redoText(); }

signals:
    void Changed();

private:
    class Step;

    /// Puts the window from one state into the other. What is the same in both stays as it is now.
    void Move(const WindowState& from, const WindowState& to);

    PaperWindow& window;
    WindowState last;
    QUndoStack stack;
};

}  // namespace linealis::desktop
