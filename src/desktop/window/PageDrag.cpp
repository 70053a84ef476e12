#include "desktop/window/PageDrag.h"

#include "desktop/form/FormView.h"
#include "desktop/system/Text.h"
#include "desktop/window/PaperView.h"
#include "pipeline/form/FieldWords.h"
#include "pipeline/form/FormCheck.h"

#include <QCursor>
#include <QToolTip>
#include <algorithm>

namespace linealis::desktop {

PageDrag::PageDrag(PaperView& theView, PaperWindow& theWindow, FormView& theForm, LivePage& thePage)
    : QObject(&thePage), view(theView), window(theWindow), form(theForm), page(thePage)
{
    std::vector<Role> titles;
    for (const PrintedField& field : PrintedFields(window.form)) {
        if (ControlsOfTitle(window.form, field.role).x != nullptr) {
            titles.push_back(field.role);
        }
    }
    page.MakeMovable(std::move(titles));
    connect(&page, &LivePage::DragBegan, this, &PageDrag::Begin);
    connect(&page, &LivePage::Dragged, this, &PageDrag::Move);
    connect(&page, &LivePage::DragEnded, this, &PageDrag::End);
    connect(&page, &LivePage::DragCanceled, this, &PageDrag::Cancel);
}

void PageDrag::Begin(const PageHandle& handle)
{
    view.FinishEdit();  // so that the step of the drag contains nothing else
    moved = handle;
    before = window.form.State();
    const PaperPage read = window.ReadPage();
    frame = read.frame;
    if (const auto* const area = std::get_if<TextArea>(&moved)) {
        title = *std::find_if(read.printed.begin(), read.printed.end(),
                              [&](const PrintedField& field) { return field.role == area->role; });
    }
}

void PageDrag::Move(QPointF distance, Grain grain)
{
    window.form.Restore(before);  // a linked margin must not limit the one that is dragged
    if (const Side* const side = std::get_if<Side>(&moved)) {
        const bool isUpright = *side == Side::Top || *side == Side::Bottom;
        MoveMargin(window.form, *side, EndOfMargin(frame, *side) + (isUpright ? distance.y() : distance.x()),
                   grain);
        form.FollowLink(MarginOf(window.form, *side));
    } else if (frame.xScale > 0.0 && frame.yScale > 0.0) {
        const Point start = std::get<TextArea>(moved).start;
        MoveTitle(window.form, title,
                  {start.x + distance.x() / frame.xScale, start.y + distance.y() / frame.yScale}, grain);
    }
    ShowPlace();
}

void PageDrag::ShowPlace() const
{
    QString place;
    if (const Side* const side = std::get_if<Side>(&moved)) {
        const TextField& field = MarginOf(window.form, *side);
        place =
            QStringLiteral("%1 %2 %3")
                .arg(ToQt(WholeName(window.form, field)), ToQt(field.Text()), ToQt(UnitWord(window.form, field)));
    } else {
        const TitleControls fields = ControlsOfTitle(window.form, title.role);
        place = QStringLiteral("X %1, Y %2 %3")
                    .arg(ToQt(fields.x->Text()), ToQt(fields.y->Text()), ToQt(UnitWord(window.form, *fields.y)));
    }
    QToolTip::showText(QCursor::pos(), place, page.viewport());
}

void PageDrag::End()
{
    QToolTip::hideText();
    if (const Side* const side = std::get_if<Side>(&moved)) {
        view.History().CommitChangeOf(MarginOf(window.form, *side));
    } else {
        const Control& text = *window.form.Find(title.control);
        view.History().Commit(tr("%1 moved").arg(ToQt(WholeName(window.form, text))));
    }
}

void PageDrag::Cancel()
{
    QToolTip::hideText();
    window.form.Restore(before);
}

}  // namespace linealis::desktop
