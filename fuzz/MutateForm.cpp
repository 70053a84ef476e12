// Makes forms in JSON, complete or partial, plain or carried by a picture.

#include "Fuzz.h"
#include "Made.h"
#include "exchange/CarriedText.h"
#include "exchange/FormJson.h"
#include "exchange/PngText.h"
#include "pipeline/form/SetControl.h"

namespace linealis::fuzz {

namespace {

Json SomeJson(const std::string& value, Dice& dice)
{
    switch (dice.Below(12)) {
    case 0:
        return nullptr;
    case 1:
        return dice.OneIn(2);
    case 2:
        return static_cast<double>(dice.Below(1000)) / 8.0;
    case 3:
        return static_cast<std::int64_t>(dice.Below(1000)) - 500;
    case 4:
        return Json::array({value});
    case 5:
        return {{"type", "text"}};
    case 6:
    case 7:
        return {{"value", value}, {"items", Json::array({1, "2"})}};
    default:
        return value;
    }
}

/// Returns some controls of a form of the kind, or the whole form.
Json SomeForm(const PaperKind& kind, Dice& dice)
{
    ScreenlessPlatform platform;
    const Paper paper = kind.makePaper(platform);
    Json json = Json::object();
    if (dice.OneIn(4)) {
        json = FormJson(kind, *paper.form);
    } else if (dice.OneIn(3)) {
        json["kind"] = dice.OneIn(8) ? SomeText(dice) : std::string(kind.name);
    }
    json["controls"];
    for (std::size_t changes = dice.Below(12); changes > 0; --changes) {
        const Control& control = *dice.OneOf(paper.form->Controls());
        json["controls"][NameOf(control, dice)] = SomeJson(SomeValue(control, dice), dice);
    }
    return json;
}

std::string FourBytes(std::size_t number)
{
    return {static_cast<char>(number >> 24U), static_cast<char>(number >> 16U), static_cast<char>(number >> 8U),
            static_cast<char>(number)};
}

std::string Carried(const std::string& json, Dice& dice)
{
    if (dice.OneIn(2)) {
        const std::string text = std::string(carriedKeyword) + std::string(5, '\0') + json;
        return std::string(pngSignature) + FourBytes(text.size()) + "iTXt" + text + FourBytes(0);
    }
    const std::string prefix = dice.OneIn(2) ? "" : "p:", declared = prefix.empty() ? "xmlns" : "xmlns:p";
    const std::string text = dice.OneIn(4) ? "<![CDATA[" + json + "]]>" : XmlText(json);
    return "<svg><" + prefix + "form " + declared + "=\"" + std::string(carriedNamespace) + "\">" + text + "</" +
           prefix + "form></svg>";
}

}  // namespace

std::string Mutate(std::string_view input, Dice& dice)
{
    const std::size_t number = input.empty() || dice.OneIn(8) ? dice.Below(PaperKinds().size())
                                                              : static_cast<unsigned char>(input.front());
    const PaperKind& kind = PaperKinds()[number % PaperKinds().size()];
    const std::string json =
        SomeForm(kind, dice).dump(dice.OneIn(2) ? -1 : 1, ' ', false, Json::error_handler_t::replace);
    const std::string made = dice.OneIn(3) ? Carried(json, dice) : json;
    return static_cast<char>(number) + (dice.OneIn(4) ? Scrambled(made) : made);
}

}  // namespace linealis::fuzz
