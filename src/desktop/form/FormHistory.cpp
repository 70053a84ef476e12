#include "desktop/form/FormHistory.h"

#include "desktop/system/Text.h"
#include "pipeline/form/FormLayout.h"

#include <QUndoCommand>
#include <utility>

namespace linealis::desktop {

namespace {

constexpr int mostSteps = 500;

}  // namespace

/// One step between two states of the window.
class FormHistory::Step final : public QUndoCommand {
public:
    Step(FormHistory& theHistory, const QString& name, WindowState theBefore, WindowState theAfter)
        : QUndoCommand(name), history(theHistory), before(std::move(theBefore)), after(std::move(theAfter))
    {}

    void undo() override { history.Move(after, before); }
    void redo() override
    {
        if (isDone) {  // the first call comes from QUndoStack::push, when the window is already in this state
            history.Move(before, after);
        }
        isDone = true;
    }

private:
    FormHistory& history;
    WindowState before;
    WindowState after;
    bool isDone = false;
};

FormHistory::FormHistory(PaperWindow& theWindow, QObject* parent)
    : QObject(parent), window(theWindow), last(theWindow.State())
{
    stack.setUndoLimit(mostSteps);
    connect(&stack, &QUndoStack::indexChanged, this, &FormHistory::Changed);
}

bool FormHistory::Commit(const QString& name)
{
    WindowState now = window.State();
    if (now == last) {
        return false;
    }
    // A new name of the output file alone is not a step: undo does not take back the file, so it must not take
    // back the name.
    WindowState before = std::exchange(last, std::move(now));
    for (std::size_t i = 0; i < before.form.size(); ++i) {
        if (before.form[i] != last.form[i] && window.form.Controls()[i] != &window.form.StaticFileName) {
            stack.push(new Step(*this, name, std::move(before), last));
            return true;
        }
    }
    return false;
}

void FormHistory::CommitChangeOf(const Control& control)
{
    Commit(ToQt(ChangeWords(window.form, control, last.form.at(window.form.PlaceOf(control)))));
}

QString FormHistory::Undo()
{
    Commit(Translated("Change"));
    QString name = stack.undoText();
    stack.undo();
    return name;
}

QString FormHistory::Redo()
{
    Commit(Translated("Change"));
    QString name = stack.redoText();
    stack.redo();
    return name;
}

bool FormHistory::CanUndo() const
{
    return stack.canUndo() || window.State().form != last.form;
}

void FormHistory::Move(const WindowState& from, const WindowState& to)
{
    const WindowState now = window.State();
    // The form contains the name of the output file, which must stay in step with the file itself.
    const std::string fileName = window.form.StaticFileName.Caption();
    WindowState target = to;
    if (from.ourFolderItem == to.ourFolderItem) {
        target.ourFolderItem = now.ourFolderItem;
    }
    const bool keepsOutput = from.outputFile == to.outputFile;
    if (keepsOutput) {
        target.outputFile = now.outputFile;
    }
    window.Restore(target);
    if (keepsOutput) {
        window.form.StaticFileName.SetCaption(fileName);
    }
    last = window.State();
}

}  // namespace linealis::desktop
