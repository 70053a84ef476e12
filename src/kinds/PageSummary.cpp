#include "kinds/PageSummary.h"

#include "pipeline/page/PageWords.h"

namespace linealis {

Message PageSummary(const PaperKind& kind, const PaperPage& page)
{
    return Message("%1, %2 %3, %4", Message::Listed(kind.galleryTitle), PaperWords(page.frame),
                   OrientationWords(page.frame), page.describe());
}

Message ShortPageSummary(const PaperPage& page)
{
    return Message("%1, %2", PaperWords(page.frame), page.describe());
}

}  // namespace linealis
