#pragma once

#include "pdf/PageContent.h"

#include <string>
#include <string_view>
#include <vector>

namespace linealis::web {

/// A page as numbers that the page painter in the browser reads one after the other. Each entry begins with its
/// code; what follows is listed with it. Places are points from the lower left corner, before the scale.
enum class DisplayCode {
    Scale = 1,       ///< across, up
    Pen = 2,         ///< width, red, green, blue (0 to 1), cap, dash on, off, phase
    Lines = 3,       ///< count; then x, y, x, y of each line, strokes of their own
    Stroke = 4,      ///< path
    Fill = 5,        ///< red, green, blue, path
    FillStroke = 6,  ///< red, green, blue, path; stroked with the pen
    Text = 7,        ///< number of the text, font, size, six numbers of the matrix, red, green, blue
};
// A path is the count of its numbers and, for each segment, 0 and a place (move), 1 and a place (line), or 2 and
// three places (curve).

/// Collects the page in numbers. With roles, collects only what has one of them.
class DisplayList final : public PageSink {
public:
    explicit DisplayList(const RoleSet& onlyRoles = {}) : roles(onlyRoles), collects(onlyRoles == RoleSet{}) {}

    bool Scale(double sx, double sy) override;
    bool Stroke(PagePath path, const PagePen& pen) override;
    bool Fill(PagePath path, const PageColor& color) override;
    bool FillAndStroke(PagePath path, const PageColor& color, const PagePen& pen) override;
    bool Text(const PageText& text) override;
    void BeginRole(Role role) override { collects = roles == RoleSet{} || Includes(roles, role); }

    /// The numbers as bytes.
    std::string_view Bytes() const;
    const std::vector<std::string>& Texts() const { return texts; }

private:
    void Add(double number) { numbers.push_back(static_cast<float>(number)); }
    void Add(DisplayCode code) { Add(static_cast<double>(code)); }
    void Add(const PageColor& color);
    void Add(PagePath path);
    void SetPen(const PagePen& pen);

    RoleSet roles;
    bool collects;
    std::vector<float> numbers;
    std::vector<std::string> texts;
    PagePen lastPen;
    bool hasPen = false;
    std::size_t countOfLines = 0;  ///< where the count of the open run of lines stands; 0: there is none
};

}  // namespace linealis::web
