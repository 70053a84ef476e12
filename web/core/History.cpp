#include "core/History.h"

#include "pipeline/form/FormLayout.h"

#include <utility>

namespace linealis::web {

namespace {

constexpr std::size_t mostSteps = 500;

}  // namespace

void History::Commit(const Message& name)
{
    std::vector<ControlState> now = form.State();
    if (now == last) {
        return;
    }
    steps.resize(done);
    undone.clear();
    steps.push_back({name, std::exchange(last, std::move(now))});
    if (steps.size() > mostSteps) {
        steps.erase(steps.begin());
    }
    done = steps.size();
}

void History::CommitChangeOf(const Control& control)
{
    Commit(ChangeWords(form, control, last.at(form.PlaceOf(control))));
}

Message History::Undo()
{
    Commit(Message("Change"));
    if (done == 0) {
        return {};
    }
    const Step& step = steps[--done];
    undone.push_back(std::exchange(last, step.before));
    form.Restore(last);
    return step.name;
}

Message History::Redo()
{
    Commit(Message("Change"));
    if (done == steps.size()) {
        return {};
    }
    last = std::move(undone.back());
    undone.pop_back();
    form.Restore(last);
    return steps[done++].name;
}

}  // namespace linealis::web
