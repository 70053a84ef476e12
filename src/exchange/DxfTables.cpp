#include "exchange/DxfTables.h"

#include "pdf/StandardFonts.h"

#include <algorithm>
#include <array>
#include <functional>
#include <tuple>
#include <vector>

namespace linealis {

namespace {

constexpr std::string_view noOwner = "0";
constexpr std::string_view plainLayer = "0";
constexpr std::string_view solidLines = "Continuous";
constexpr std::string_view dimensionStyles = "DIMSTYLE";

void Section(DxfGroups& groups, std::string_view name, const std::function<void()>& content)
{
    groups.Add(0, "SECTION");
    groups.Add(2, name);
    content();
    groups.Add(0, "ENDSEC");
}

void Header(const PaperSize& paper, DxfGroups& groups)
{
    const auto text = [&](std::string_view name, int code, std::string_view value) {
        groups.Add(9, name);
        groups.Add(code, value);
    };
    const double width = static_cast<double>(paper.width) * dxfUnitsPerPoint,
                 height = static_cast<double>(paper.height) * dxfUnitsPerPoint;
    text("$ACADVER", 1, "AC1015");
    text("$DWGCODEPAGE", 3, "ANSI_1252");
    text("$INSUNITS", 70, "4");     // millimeters
    text("$MEASUREMENT", 70, "1");  // metric
    text("$LWDISPLAY", 290, "1");   // show line weights
    for (const auto& [name, x, y] : {std::tuple("$EXTMIN", 0.0, 0.0), std::tuple("$EXTMAX", width, height)}) {
        groups.Add(9, name);
        groups.Add(10, x, y);
        groups.Add(30, 0.0);
    }
    for (const auto& [name, x, y] : {std::tuple("$LIMMIN", 0.0, 0.0), std::tuple("$LIMMAX", width, height)}) {
        groups.Add(9, name);
        groups.Add(10, x, y);
    }
    constexpr std::uint64_t beyondAllHandles = 0x10000000;  // a page has fewer entities than 2^28
    text("$HANDSEED", 5, DxfHandle(beyondAllHandles));
}

/// Writes a table of `count` records. `content` receives a function that begins a record, given its subclass and
/// its name, and returns its handle.
template <typename Content>
void Table(DxfGroups& groups, std::string_view type, std::size_t count, Content content)
{
    groups.Add(0, "TABLE");
    groups.Add(2, type);
    const std::string owner = groups.AddHandle();
    groups.Add(330, noOwner);
    groups.Add(100, "AcDbSymbolTable");
    groups.Add(70, static_cast<int>(count));
    if (type == dimensionStyles) {
        groups.Add(100, "AcDbDimStyleTable");
    }
    content([&](std::string_view subclass, std::string_view name) {
        constexpr int handleOfStyle = 105;  // of dimension styles alone
        std::string handle =
            groups.Begin(type, owner, type == dimensionStyles ? handleOfStyle : DxfGroups::handleCode);
        groups.Add(100, "AcDbSymbolTableRecord");
        groups.Add(100, subclass);
        groups.Add(2, name);
        return handle;
    });
    groups.Add(0, "ENDTAB");
}

void ViewTable(const PaperSize& paper, DxfGroups& groups)
{
    const double width = static_cast<double>(paper.width) * dxfUnitsPerPoint,
                 height = static_cast<double>(paper.height) * dxfUnitsPerPoint;
    Table(groups, "VPORT", 1, [&](auto record) {
        record("AcDbViewportTableRecord", "*Active");
        groups.Add(70, 0);
        groups.Add(10, 0.0, 0.0);
        groups.Add(11, 1.0, 1.0);
        groups.Add(12, width / 2.0, height / 2.0);
        groups.Add(40, height);
        groups.Add(41, width / height);
    });
}

void LineTypeTable(DxfGroups& groups)
{
    constexpr std::array<std::string_view, 3> names = {"ByBlock", "ByLayer", solidLines};
    Table(groups, "LTYPE", names.size(), [&](auto record) {
        for (const std::string_view name : names) {
            record("AcDbLinetypeTableRecord", name);
            groups.Add(70, 0);
            groups.Add(3, "");
            groups.Add(72, int{'A'});
            groups.Add(73, 0);
            groups.Add(40, 0.0);
        }
    });
}

void LayerTable(std::span<const RoleRange> roles, DxfGroups& groups)
{
    std::vector<std::string> layers = {std::string(plainLayer)};
    for (const RoleRange& range : roles) {
        if (std::string layer = DxfLayer(range.role);
            std::find(layers.begin(), layers.end(), layer) == layers.end()) {
            layers.push_back(std::move(layer));
        }
    }
    Table(groups, "LAYER", layers.size(), [&](auto record) {
        for (const std::string& layer : layers) {
            constexpr int blackOrWhite = 7, defaultWeight = -3;
            record("AcDbLayerTableRecord", layer);
            groups.Add(70, 0);
            groups.Add(62, blackOrWhite);
            groups.Add(6, solidLines);
            groups.Add(370, defaultWeight);
        }
    });
}

/// Returns the TrueType file of the font, as Windows names it; other systems look for a similar one.
std::string FontFile(const StandardFont& font)
{
    const std::string_view generic = font.family.generic;
    const std::string name = generic == "monospace"    ? "cour"
                             : generic == "sans-serif" ? "arial"
                             : generic == "serif"      ? "times"
                                                       : "symbol";
    return name + (font.isBold ? font.isSlanted ? "bi" : "bd" : font.isSlanted ? "i" : "") + ".ttf";
}

void StyleTable(DxfGroups& groups)
{
    const auto fonts = StandardFonts().subspan<1>();  // the first two are the same
    Table(groups, "STYLE", fonts.size() + 1, [&](auto record) {
        const auto style = [&](std::string_view name, const std::string& file) {
            record("AcDbTextStyleTableRecord", name);
            groups.Add(70, 0);
            groups.Add(40, 0.0);  // any height
            groups.Add(41, 1.0);
            groups.Add(50, 0.0);
            groups.Add(71, 0);
            groups.Add(42, 1.0);
            groups.Add(3, file);
            groups.Add(4, "");
        };
        style("Standard", "txt");
        for (const StandardFont& font : fonts) {
            style(font.name, FontFile(font));
        }
    });
}

}  // namespace

std::string DxfLayer(Role role)
{
    std::string layer(role.empty() ? plainLayer : role);
    std::replace(layer.begin(), layer.end(), '.', '-');
    return layer;
}

std::string BeginDxf(const PaperSize& paper, std::span<const RoleRange> roles, DxfGroups& groups)
{
    constexpr std::array<std::string_view, 2> blocks = {"*Model_Space", "*Paper_Space"};
    std::vector<std::string> owners;
    Section(groups, "HEADER", [&] { Header(paper, groups); });
    Section(groups, "CLASSES", [] {});
    Section(groups, "TABLES", [&] {
        ViewTable(paper, groups);
        LineTypeTable(groups);
        LayerTable(roles, groups);
        StyleTable(groups);
        for (const std::string_view type : {"VIEW", "UCS"}) {
            Table(groups, type, 0, [](auto /*record*/) {});
        }
        Table(groups, "APPID", 1, [&](auto record) {
            record("AcDbRegAppTableRecord", "ACAD");
            groups.Add(70, 0);
        });
        Table(groups, dimensionStyles, 1, [&](auto record) {
            record("AcDbDimStyleTableRecord", "Standard");
            groups.Add(70, 0);
        });
        Table(groups, "BLOCK_RECORD", blocks.size(), [&](auto record) {
            for (const std::string_view block : blocks) {
                owners.push_back(record("AcDbBlockTableRecord", block));
            }
        });
    });
    Section(groups, "BLOCKS", [&] {
        for (std::size_t i = 0; i < blocks.size(); ++i) {
            groups.Begin("BLOCK", owners[i]);
            groups.Add(100, "AcDbEntity");
            groups.Add(8, plainLayer);
            groups.Add(100, "AcDbBlockBegin");
            groups.Add(2, blocks.at(i));
            groups.Add(70, 0);
            groups.Add(10, 0.0, 0.0);
            groups.Add(30, 0.0);
            groups.Add(3, blocks.at(i));
            groups.Add(1, "");
            groups.Begin("ENDBLK", owners[i]);
            groups.Add(100, "AcDbEntity");
            groups.Add(8, plainLayer);
            groups.Add(100, "AcDbBlockEnd");
        }
    });
    groups.Add(0, "SECTION");
    groups.Add(2, "ENTITIES");
    return owners.front();
}

void EndDxf(DxfGroups& groups)
{
    groups.Add(0, "ENDSEC");
    // Programs refuse a file without a dictionary of its groups, even an empty one.
    Section(groups, "OBJECTS", [&] {
        const auto dictionary = [&](std::string_view owner) {
            std::string handle = groups.Begin("DICTIONARY", owner);
            groups.Add(100, "AcDbDictionary");
            groups.Add(281, 1);
            return handle;
        };
        const std::string root = dictionary(noOwner);
        groups.Add(3, "ACAD_GROUP");
        groups.Add(350, groups.NextHandle());
        dictionary(root);
    });
    groups.Add(0, "EOF");
}

}  // namespace linealis
