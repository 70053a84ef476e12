#include "desktop/dialogs/PadRemarks.h"

#include "desktop/system/Text.h"

namespace linealis::desktop {

namespace {

constexpr std::size_t mostLines = 6;

}  // namespace

void PadRemarks::Add(const Message& page, const Message& remark)
{
    if (said.insert(remark.English()).second && said.size() <= mostLines) {
        lines << ToQt(Message("Warning: %1", Message::Joined({page, remark}, ": ")));
    }
}

QString PadRemarks::Text() const
{
    QStringList all = lines;
    if (said.size() > mostLines) {
        const std::size_t more = said.size() - mostLines;
        all << ToQt(Message(Plural("%1 more warning", "%1 more warnings"), static_cast<double>(more), more));
    }
    return all.join(QLatin1Char('\n'));
}

}  // namespace linealis::desktop
