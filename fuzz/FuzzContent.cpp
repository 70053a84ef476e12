// Fuzzes page content. Any content is read to its end or to its damage, and the pictures made from it can be read
// back.

#include "Fuzz.h"
#include "exchange/CarriedText.h"
#include "exchange/DxfPage.h"
#include "exchange/PngPage.h"
#include "exchange/SvgPage.h"
#include "pdf/PageContent.h"

#include <algorithm>
#include <cmath>

using namespace linealis;
using namespace linealis::fuzz;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view content = Input(data, size).All();
    PageReader reader(content);
    const char* last = content.data();
    while (reader.Next()) {
        const std::string_view source = reader.Source();
        Require(source.data() >= last && source.data() + source.size() <= content.data() + content.size());
        last = source.data() + source.size();
        for (const double operand : reader.Operands()) {
            Require(std::isfinite(operand));
        }
        if (reader.Operator() == PageOperator::ShowText) {
            Require(PageString(reader.Text()).size() <= reader.Text().size());
        }
    }
    Require(reader.IsDamaged() || last <= content.data() + content.size());
    std::string svg, png;
    BinaryStream intoSvg = BinaryStream::IntoMemory(svg), intoPng = BinaryStream::IntoMemory(png);
    WriteSvg({100, 80}, content, {}, "carried", intoSvg);
    Require(TextInPicture(svg) == "carried" && svg.ends_with("</svg>\n"));
    std::string dxf;
    BinaryStream intoDxf = BinaryStream::IntoMemory(dxf);
    WriteDxf({100, 80}, content, {}, intoDxf);
    Require(dxf.ends_with("0\r\nEOF\r\n") && std::count(dxf.begin(), dxf.end(), '\n') % 2 == 0);
    WritePng({100, 80}, content, {36.0, false, 0.0, "carried"}, intoPng);
    Require(TextInPicture(png) == "carried");
    return 0;
}
