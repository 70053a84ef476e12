#pragma once

#include "text/Message.h"

#include <QString>
#include <QStringList>
#include <cstddef>
#include <optional>
#include <set>
#include <string>

namespace linealis::desktop {

/// Collects what is to be said about the pages of a pad: each remark once, however many pages it is true of.
class PadRemarks {
public:
    /// Adds a remark about a page. `page` is its name; an empty one if there is only one page.
    void Add(const Message& page, const Message& remark);

    /// Returns a remark on each line: the first few, and the number of the others. Empty if there are none.
    QString Text() const;

private:
    std::set<std::string> said;  ///< in English
    QStringList lines;           ///< the first few
};

}  // namespace linealis::desktop
