#include "TestSupport.h"
#include "exchange/DxfColor.h"
#include "exchange/DxfPage.h"
#include "pipeline/form/SetControl.h"
#include "pipeline/page/PageJob.h"

#include <cmath>
#include <numbers>

namespace linealis::test {
namespace {

constexpr double mm = 25.4 / 72.0;

/// An entity of a DXF file, read as little as can be: its groups with their codes.
struct Entity {
    std::string type;
    std::vector<std::pair<int, std::string>> groups;

    std::string Text(int code) const
    {
        const auto found =
            std::find_if(groups.begin(), groups.end(), [&](const auto& group) { return group.first == code; });
        return found == groups.end() ? "" : found->second;
    }
    double Number(int code) const { return std::stod(Text(code)); }

    /// The points whose coordinates have these codes, each with the bulge that follows it.
    std::vector<std::array<double, 3>> Points(std::initializer_list<int> codes) const
    {
        std::vector<std::array<double, 3>> points;
        for (std::size_t i = 0; i < groups.size(); ++i) {
            if (std::find(codes.begin(), codes.end(), groups[i].first) != codes.end()) {
                const bool hasBulge = i + 2 < groups.size() && groups[i + 2].first == 42;
                points.push_back({std::stod(groups[i].second), std::stod(groups[i + 1].second),
                                  hasBulge ? std::stod(groups[i + 2].second) : 0.0});
            }
        }
        return points;
    }

    /// The corners of lines, the first one again at the end if they are closed.
    std::vector<std::array<double, 3>> Corners() const
    {
        auto corners = Points({10, 11});
        if (Text(70) == "1") {
            corners.push_back(corners.front());
        }
        return corners;
    }

    /// How far the entity is from a point.
    double Distance(const Point& point) const
    {
        if (type == "CIRCLE") {
            return std::abs(std::hypot(point.x - Number(10), point.y - Number(20)) - Number(40));
        }
        double least = 1e9;
        const auto corners = Corners();
        for (std::size_t i = 0; i + 1 < corners.size(); ++i) {
            const double x = corners[i][0], y = corners[i][1], w = corners[i + 1][0] - x, h = corners[i + 1][1] - y;
            const double along = std::clamp(((point.x - x) * w + (point.y - y) * h) / (w * w + h * h), 0.0, 1.0);
            least = std::min(least, std::hypot(point.x - x - along * w, point.y - y - along * h));
        }
        return least;
    }
};

std::vector<Entity> EntitiesOf(const std::string& dxf)
{
    std::vector<Entity> entities;
    const Names lines = Lines(dxf.substr(dxf.find("\r\nENTITIES\r\n") + 12), '\n');
    for (std::size_t i = 0; i + 1 < lines.size(); i += 2) {
        const std::string value = lines[i + 1].substr(0, lines[i + 1].size() - 1);
        if (const int code = std::stoi(lines[i]); code != 0) {
            entities.back().groups.emplace_back(code, value);
        } else if (value == "ENDSEC") {
            break;
        } else {
            entities.push_back({value, {}});
        }
    }
    return entities;
}

std::vector<Entity> EntitiesOfContent(const std::string& content)
{
    std::string dxf;
    BinaryStream stream = BinaryStream::IntoMemory(dxf);
    WriteDxf({200, 100}, content, {}, stream);
    return EntitiesOf(dxf);
}

/// Compares what a content shows with the entities, which have the same order.
class Compared final : public PageSink {
public:
    explicit Compared(std::vector<Entity> theEntities) : entities(std::move(theEntities)) {}

    bool Scale(double sx, double sy) override
    {
        scaleX = sx * mm;
        scaleY = sy * mm;
        return true;
    }
    bool Stroke(PagePath path, const PagePen& pen) override
    {
        const bool isPoint = path.size() == 2 && path[0].to.x == path[1].to.x && path[0].to.y == path[1].to.y;
        if (isPoint && pen.cap != 1) {
            return true;  // without round ends it shows nothing
        }
        const Entity& entity = Next();
        if (isPoint) {
            EXPECT_EQ(entity.type, "CIRCLE");
            EXPECT_NEAR(entity.Number(10), path[0].to.x * scaleX, 0.001);
            EXPECT_NEAR(entity.Number(20), path[0].to.y * scaleY, 0.001);
            EXPECT_NEAR(entity.Number(40), pen.width / 2.0 * std::sqrt(scaleX * scaleY), 0.001);
            return true;
        }
        // A Bezier curve bulges up to 0.03 % over the circle that it stands for.
        const double tolerance = entity.type == "CIRCLE" ? 0.0003 * entity.Number(40) + 0.002 : 0.006;
        Point from{};
        double length = 0.0;
        for (const PathSegment& to : path) {
            const auto at = [&](double t) {
                const double s = 1.0 - t;
                return to.operation == PageOperator::Curve
                           ? Point{(s * s * s * from.x + 3.0 * s * s * t * to.control1.x +
                                    3.0 * s * t * t * to.control2.x + t * t * t * to.to.x) *
                                       scaleX,
                                   (s * s * s * from.y + 3.0 * s * s * t * to.control1.y +
                                    3.0 * s * t * t * to.control2.y + t * t * t * to.to.y) *
                                       scaleY}
                           : Point{(s * from.x + t * to.to.x) * scaleX, (s * from.y + t * to.to.y) * scaleY};
            };
            for (double t = to.operation == PageOperator::Move ? 1.0 : 0.0; t <= 1.0; t += 0.125) {
                EXPECT_LE(entity.Distance(at(t)), tolerance) << entity.type << " " << at(t).x << " " << at(t).y;
            }
            length +=
                to.operation == PageOperator::Line ? std::hypot(at(1.0).x - at(0.0).x, at(1.0).y - at(0.0).y) : 0.0;
            from = to.to;
        }
        if (entity.type == "LINE") {
            EXPECT_NEAR(std::hypot(entity.Number(11) - entity.Number(10), entity.Number(21) - entity.Number(20)),
                        length, 0.002);
        }
        return true;
    }
    bool Fill(PagePath path, const PageColor& /*color*/) override
    {
        const Entity& hatch = Next();
        EXPECT_EQ(hatch.type, "HATCH");
        const auto corners = hatch.Points({10});  // the first one is its elevation
        EXPECT_EQ(corners.size(), path.size());   // the last one closes the path
        for (std::size_t i = 1; i < corners.size(); ++i) {
            EXPECT_NEAR(corners[i][0], path[i - 1].to.x * scaleX, 0.001);
            EXPECT_NEAR(corners[i][1], path[i - 1].to.y * scaleY, 0.001);
        }
        return true;
    }
    bool FillAndStroke(PagePath path, const PageColor& color, const PagePen& pen) override
    {
        return Fill(path, color) && Stroke(path, pen);
    }
    bool Text(const PageText& text) override
    {
        const Entity& entity = Next();
        EXPECT_EQ(entity.type, "TEXT");
        EXPECT_EQ(entity.Text(1), text.utf8);
        EXPECT_NEAR(entity.Number(10), text.matrix[4] * scaleX, 0.001);
        EXPECT_NEAR(entity.Number(20), text.matrix[5] * scaleY, 0.001);
        return true;
    }
    void BeginRole(Role role) override
    {
        layer = role;
        std::replace(layer.begin(), layer.end(), '.', '-');
    }

    bool IsAtEnd() const { return next == entities.size(); }

private:
    const Entity& Next()
    {
        const Entity& entity = entities.at(next++);
        EXPECT_EQ(entity.Text(8), layer);
        return entity;
    }

    std::vector<Entity> entities;
    std::size_t next = 0;
    double scaleX = mm;
    double scaleY = mm;
    std::string layer = "0";
};

TEST(Dxf, HasAllThatThePageShows)
{
    const TemporaryFolder folder;
    std::size_t files = 0;
    for (const PaperKind& kind : PaperKinds()) {
        for (const bool isStretched : {false, true}) {
            SCOPED_TRACE(kind.name);
            ScreenlessPlatform platform;
            const std::unique_ptr<PaperWindow> window = MakeWindow(kind, platform);
            SetControl(kind.name, window->form, {"paper-size", "A5"});
            if (isStretched) {
                SetControl(kind.name, window->form, {"x-scale", "93.5"});
                SetControl(kind.name, window->form, {"y-scale", "81"});
                SetControl(kind.name, window->form, {"background-color", "#eee"});
            }
            const DrawnPage page = window->DrawPage();
            std::string dxf;
            BinaryStream stream = BinaryStream::IntoMemory(dxf);
            WriteDxf({page.frame.paperWidth, page.frame.paperHeight}, page.content, page.roles, stream);
            Compared compared(EntitiesOf(dxf));
            ReadPage(page.content, page.roles, compared);
            EXPECT_TRUE(compared.IsAtEnd());
            WriteFile(folder / (std::to_string(++files) + ".dxf"), dxf);
        }
    }
    // Another program reads them without a fault.
    const std::string audit = RunInShell(folder, "ezdxf audit *.dxf").output;
    std::size_t clean = 0;
    for (std::size_t at = audit.find("No errors"); at != std::string::npos; at = audit.find("No errors", at + 1)) {
        ++clean;
    }
    EXPECT_EQ(clean, files) << audit;
}

TEST(Dxf, KeepsArcsAndFollowsOtherCurves)
{
    const std::vector<Entity> entities = EntitiesOfContent(
        "0 0 m\r0 100 l\r55.22847 100 100 55.22847 100 0 c\rS\r"  // a line and a quarter of a circle to the right
        "0 0 m\r10 90 90 -40 100 0 c\rS\r"
        "10 10 m\r10 10 l\rS\r5 w\r1 J\r10 10 m\r10 10 l\rS\r.85 w\r0 0 m\r1 0 l\rS\r");
    ASSERT_EQ(entities.size(), 4U) << "a dot without round ends shows nothing";
    const auto arc = entities[0].Corners();
    ASSERT_EQ(arc.size(), 3U);
    EXPECT_EQ(arc[0][2], 0.0);
    EXPECT_NEAR(arc[1][2], -std::tan(std::numbers::pi / 8.0), 0.0001);
    EXPECT_GT(entities[1].Corners().size(), 20U);
    for (const double t : {0.13, 0.37, 0.51, 0.77}) {
        const double s = 1.0 - t;
        EXPECT_LE(entities[1].Distance({(3.0 * s * s * t * 10.0 + 3.0 * s * t * t * 90.0 + t * t * t * 100.0) * mm,
                                        (3.0 * s * s * t * 90.0 - 3.0 * s * t * t * 40.0) * mm}),
                  0.005);
    }
    EXPECT_NEAR(entities[2].Number(40), 2.5 * mm, 0.001);
    EXPECT_EQ(entities[3].Text(370), "30") << "0.3 mm";
}

TEST(Dxf, HasTheNearestColors)
{
    const auto color = [](int red, int green, int blue) {
        return DxfColor({red / 255.0, green / 255.0, blue / 255.0});
    };
    EXPECT_EQ((std::vector{color(0, 0, 0), color(255, 255, 255), color(254, 1, 0), color(0, 0, 255),
                           color(255, 127, 0), color(0, 191, 255), color(127, 223, 255), color(76, 0, 0),
                           color(128, 129, 128), color(214, 214, 214)}),
              (std::vector{7, 255, 1, 5, 30, 140, 141, 16, 8, 254}));
}

TEST(Dxf, WritesTextsAsProgramsReadThem)
{
    const auto shown = [](const std::string& bytes) {
        return EntitiesOfContent("BT\r/F5 10 Tf\r0 1 -1 0 72 36 Tm\r(" + bytes + ") Tj\rET\r").at(0);
    };
    const Entity text = shown("a\\\\U+41^ 5%% \x8E");  // the backslash is escaped in the content
    EXPECT_EQ(text.Text(1), "a\\U+005CU+41\\U+005E 5%\\U+0025 \\U+00E9");
    EXPECT_NEAR(text.Number(50), 90.0, 0.001);
    EXPECT_NEAR(text.Number(40), 7.18 * mm, 0.001) << "the height of capital letters";
    EXPECT_EQ(text.Text(7), "Helvetica");
}

}  // namespace
}  // namespace linealis::test
