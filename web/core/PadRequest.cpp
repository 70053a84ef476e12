#include "core/PadRequest.h"

#include "core/OpenPaper.h"
#include "kinds/PadFile.h"
#include "pdf/Units.h"
#include "text/Numbers.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace linealis::web {

namespace {

/// Returns a whole number of the request, or the nearest possible one.
std::size_t CountIn(const Question& question, const char* name, std::size_t most)
{
    const double given = question.json.value(name, 1.0);
    return static_cast<std::size_t>(truncated(std::clamp(given, 1.0, static_cast<double>(most))));
}

PadLayout LayoutIn(const Question& question, const PageFrame& frame)
{
    const auto given = static_cast<std::size_t>(question.json.value("up", 1U));
    const auto& possible = possiblePagesUp;
    const auto* const up = std::find(possible.begin(), possible.end(), given);
    return {CountIn(question, "pages", mostPadPages),
            up == possible.end() ? 1 : *up,
            question.json.value("hasNumbers", false),
            {frame.paperWidth, frame.paperHeight}};
}

/// Returns a size in the unit of the form.
Message SizeWordsOf(const PaperSize& size, bool isInInches)
{
    const auto number = [=](std::int64_t points) {
        const double inches = static_cast<double>(points) / pointsPerInch;
        constexpr double millimetersPerInch = 25.4, thousandths = 1000.0;
        return isInInches ? std::round(inches * thousandths) / thousandths
                          : std::round(inches * millimetersPerInch);
    };
    return isInInches ? Message("%1 \u00D7 %2 in", number(size.width), number(size.height))
                      : Message("%1 \u00D7 %2 mm", number(size.width), number(size.height));
}

Message SizeInPoints(const PageFrame& frame)
{
    return Message("%1 \u00D7 %2 points", frame.paperWidth, frame.paperHeight);
}

/// Returns the paper of the back: a new form on the paper of the front, or a file, whose page must have its size.
std::unique_ptr<Session> BackOf(const Json& back, const Question& question, const PageFrame& front,
                                Session& session)
{
    Question opening{back, question.bytes};
    opening.json["now"] = question.json.at("now");
    auto opened = OpenedPaper(opening, session.LanguageOfPage());
    const std::string file = opening.Text("file");
    if (file.empty()) {
        TakePaperOf(session.Window().form, opened->Kind().name, opened->Window().form);
        return opened;
    }
    const PageFrame frame = opened->Read().frame;
    if (frame.paperWidth != front.paperWidth || frame.paperHeight != front.paperHeight) {
        const Message why("its page has %1, the front %2", SizeInPoints(frame), SizeInPoints(front));
        throw Refusal{Message("%1 cannot be the back: %2", file, why)};
    }
    return opened;
}

std::string FormOf(Session& session)
{
    return CarriedForm(session.Kind(), session.Window().form);
}

}  // namespace

Answer MakePad(const Question& question, Session& session)
{
    const PageFrame frame = session.Read().frame;
    const PadLayout layout = LayoutIn(question, frame);
    const std::size_t copies = CountIn(question, "copies", mostPadCopies);
    const Json back = question.json.value("back", Json());
    const bool isSame = back.is_object() && back.value("isSame", false);
    const auto paper = back.is_object() && !isSame ? BackOf(back, question, frame, session) : nullptr;
    const auto sheets = static_cast<double>(layout.Sheets() * copies);
    const Message words(Plural("%1 sheet of %2", "%1 sheets of %2"), sheets, sheets,
                        SizeWordsOf(layout.Side(), frame.IsInInches()));
    Answer answer{
        {{"pages", layout.pages}, {"copies", copies}, {"columns", layout.Columns()}, {"rows", layout.Rows()}}};
    answer.json["words"] =
        session.Say(words) + (back.is_object() ? session.Say(Message(", printed on both sides")) : "");
    if (question.json.value("isOnlyDescribed", false)) {
        return answer;
    }
    BinaryStream stream = BinaryStream::IntoMemory(answer.bytes);
    Turns turns([] {});
    PadFile file(stream, turns);
    file.AddFront(session.Draw(), FormOf(session));
    if (isSame) {
        file.SetBackToFront();
    } else if (paper != nullptr) {
        file.SetBack(paper->Draw(), FormOf(*paper));
    }
    PadPlan plan{layout};
    plan.hasBacks = back.is_object();
    file.Finish(plan, copies, TimeOf(question));
    return answer;
}

}  // namespace linealis::web
