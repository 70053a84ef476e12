#include "kinds/PageSummary.h"

#include "pipeline/page/PageWords.h"

namespace linealis {

std::string PageSummary(const PaperKind& kind, const PaperPage& page)
{
    return std::string(kind.galleryTitle) + ", " + PaperWords(page.frame) + " " +
           std::string(OrientationWords(page.frame)) + ", " + page.describe();
}

std::string ShortPageSummary(const PaperPage& page)
{
    return PaperWords(page.frame) + ", " + page.describe();
}

}  // namespace linealis
