#include "PageDescription.h"

#include "pdf/PageContent.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <sstream>

namespace linealis::test {
namespace {

using Texts = std::vector<std::string>;

template <class... Values>
std::string Printed(const char* form, Values... values)
{
    std::string text(static_cast<std::size_t>(std::snprintf(nullptr, 0, form, values...)), '\0');
    std::snprintf(text.data(), text.size() + 1, form, values...);
    return text;
}

/// A number as pages have it, made apart from the program's own way.
std::string NumberText(double value)
{
    std::string text = Printed("%.7g", value);
    if (text.find('e') != std::string::npos) {
        const bool whole = value == std::trunc(value);
        text = Printed("%.*f", whole ? 0 : 12, value);
        text.erase(whole ? text.size() : text.find_last_not_of('0') + 1);
    }
    return text == "-0" ? "0" : text;
}

double Number(const std::string& text)
{
    return std::strtod(text.c_str(), nullptr);
}

std::string Joined(const Texts& texts, std::string_view between = " ")
{
    std::string joined;
    for (const std::string& text : texts) {
        joined += (&text == texts.data() ? "" : std::string(between)) + text;
    }
    return joined;
}

/// The pieces between separators that stand in no quotes, without empty ones.
Texts Split(std::string_view text, std::string_view separators)
{
    Texts pieces(1);
    bool quoted = false;
    for (const char c : text) {
        quoted = quoted != (c == '"');
        if (!quoted && separators.find(c) != std::string_view::npos) {
            pieces.emplace_back();
        } else {
            pieces.back() += c;
        }
    }
    std::erase(pieces, "");
    return pieces;
}

std::string Quoted(std::string_view text)
{
    std::string quoted = "\"";
    for (const char c : text) {
        const bool plain = c >= ' ' && c <= '~' && std::string_view("\"\\|").find(c) == std::string_view::npos;
        quoted +=
            plain ? std::string(1, c) : Printed("\\%02X", static_cast<unsigned>(static_cast<unsigned char>(c)));
    }
    return quoted + '"';
}

std::string Unquoted(std::string_view quoted)
{
    std::string text;
    for (std::size_t i = 1; i + 1 < quoted.size(); ++i) {
        const bool coded = quoted[i] == '\\';
        text += coded ? static_cast<char>(std::stoi(std::string(quoted.substr(i + 1, 2)), nullptr, 16)) : quoted[i];
        i += coded ? 2U : 0U;
    }
    return text;
}

/// The " {PEN}" of a thing; empty if it has none.
std::string PenOf(const std::string& thing)
{
    const std::size_t start = thing.rfind(" {");
    return start == std::string::npos || !thing.ends_with('}') ? "" : thing.substr(start);
}

// From a thing's line to the content's lines.

Texts Circle(double x, double y, double r, const std::string& paint)
{
    constexpr double pi = 3.1415927;
    const double k = 0.5522847498 * r;
    const double along[] = {1, 0, -1, 0, 1};  // where a quadrant's curve goes: right, down, left, up
    Texts lines;
    for (std::size_t q = 0; q < 4; ++q) {
        const double t0 = pi * static_cast<double>(q) / 2, t1 = pi * static_cast<double>(q + 1) / 2;
        const double x0 = std::sin(t0) * r + x, y0 = std::cos(t0) * r + y;
        const double x1 = std::sin(t1) * r + x, y1 = std::cos(t1) * r + y;
        const double left = along[q] * k, down = along[(q + 3) % 4] * k;
        lines.push_back(NumberText(x0) + ' ' + NumberText(y0) + " m");
        lines.push_back(Joined({NumberText(x0 + left), NumberText(y0 - down), NumberText(x1 + down),
                                NumberText(y1 + left), NumberText(x1), NumberText(y1), "c"}));
    }
    lines.push_back(paint);
    return lines;
}

/// From the words: text STRING at X Y font F size S [turned ANGLE | matrix A B C D] [from X Y].
Texts TextBlock(const Texts& w)
{
    Texts lines = {"BT", "/F" + w[6] + ' ' + w[8] + " Tf", w[w.size() - 2] + ' ' + w.back() + " Td",
                   '(' + Unquoted(w[1]) + ") Tj", "ET"};
    if (w.size() == 9) {
        lines[2] = w[3] + ' ' + w[4] + " Td";
        return lines;
    }
    Texts matrix(w.begin() + 10, w.end() - 3);
    if (w[9] == "turned") {
        const double a = Number(w[10]) * 3.1415927 / 180.0;
        matrix.clear();
        for (const double value : {std::cos(a), std::sin(a), -std::sin(a), std::cos(a)}) {
            matrix.push_back(Printed("%s%014.8f", value < 0 ? "-" : "", std::fabs(value)));
        }
    }
    lines.insert(lines.begin() + 2, Joined(matrix) + ' ' + w[3] + ' ' + w[4] + " Tm");
    return lines;
}

Texts PathLines(const Texts& w)
{
    Texts lines;
    for (std::size_t i = 1; i + 1 < w.size(); i += 2) {
        lines.push_back(w[i] + ' ' + w[i + 1] + (i == 1 ? " m" : " l"));
    }
    lines.emplace_back(w[0] == "fill" ? " f" : "S");
    return lines;
}

Texts ThingLines(Texts w)
{
    if (w[0] == "circle" || w[0] == "disc") {
        return Circle(Number(w[1]), Number(w[2]), Number(w[4]), w[0] == "disc" ? " B" : " S");
    }
    std::erase(w, "-");
    return w[0] == "text" ? TextBlock(w) : w[0] == "nothing" ? Texts{} : PathLines(w);
}

/// The lines of the setting that begins at the word, which moves behind it.
Texts SettingLines(Texts::const_iterator& w)
{
    const std::string name = *w++;
    if (name == "black" || name == "white" || name == "color") {
        std::string channels = name == "white" ? "1.00 1.00 1.00" : "0.00 0.00 0.00";
        if (name == "color") {
            channels = Joined({w[0], w[1], w[2]});
            w += 3;
        }
        return {channels + " RG", channels + " rg"};
    }
    if (name == "scale") {
        w += 2;
        return {w[-2] + " 0 0 " + w[-1] + "  0 0 cm"};
    }
    ++w;
    return {name == "raw" ? Unquoted(w[-1]) : w[-1] + (name == "width" ? " w" : " J")};
}

const Texts thingWords = {"line", "path", "fill", "circle", "disc", "text", "nothing"};

Texts LinesOf(const std::string& thing)
{
    const Texts words = Split(thing.substr(0, thing.size() - PenOf(thing).size()), " ,:");
    Texts lines;
    auto word = words.cbegin();
    while (word != words.cend() && std::find(thingWords.begin(), thingWords.end(), *word) == thingWords.end()) {
        const Texts setting = SettingLines(word);
        lines.insert(lines.end(), setting.begin(), setting.end());
    }
    const Texts made = ThingLines(Texts(word, words.cend()));
    lines.insert(lines.end(), made.begin(), made.end());
    return lines;
}

// From the content's lines to things.

/// The pens, in the order of the things.
struct Pens : PageSink {
    Texts pens;

    static std::string ColorText(const PageColor& c)
    {
        return c == PageColor{}          ? "black"
               : c == PageColor{1, 1, 1} ? "white"
                                         : Printed("%g %g %g", c.red, c.green, c.blue);
    }
    static std::string PenText(const PagePen& pen)
    {
        return Printed("%g ", pen.width) + ColorText(pen.color) +
               (pen.cap == 0 ? "" : Printed(" cap %d", pen.cap)) +
               (pen.dashOn == 0.0 ? "" : Printed(" dash %g %g %g", pen.dashOn, pen.dashOff, pen.dashPhase));
    }
    bool Take(const std::string& pen)
    {
        pens.push_back(pen);
        return true;
    }
    bool Scale(double, double) override { return true; }
    bool Stroke(PagePath, const PagePen& pen) override { return Take(PenText(pen)); }
    bool Fill(PagePath, const PageColor& color) override { return Take(ColorText(color)); }
    bool FillAndStroke(PagePath, const PageColor& color, const PagePen& pen) override
    {
        return Take(PenText(pen) + " on " + ColorText(color));
    }
    bool Text(const PageText& text) override { return Take(ColorText(text.color)); }
};

struct Operation {
    PageOperator name;
    std::string source;
    Texts operands;
};

/// The settings' words. What has no words that give the same lines again stands as it is.
std::string SettingsText(const std::vector<Operation>& settings)
{
    std::string text;
    const auto add = [&](const std::string& words) { text += (text.empty() ? "" : " ") + words; };
    for (std::size_t i = 0; i < settings.size(); ++i) {
        const Operation& at = settings[i];
        const std::string channels = at.name == PageOperator::StrokeColor ? Joined(at.operands) : "";
        if (at.name == PageOperator::StrokeColor && i + 1 < settings.size() &&
            settings[i + 1].source == channels + " rg" && at.source == channels + " RG") {
            add(channels == "0.00 0.00 0.00"   ? "black"
                : channels == "1.00 1.00 1.00" ? "white"
                                               : "color " + channels);
            ++i;
        } else if (at.name == PageOperator::Scale && at.operands.size() == 6 &&
                   at.source == at.operands[0] + " 0 0 " + at.operands[3] + "  0 0 cm") {
            add("scale " + at.operands[0] + ' ' + at.operands[3]);
        } else if (at.source == at.operands[0] + " w" || at.source == at.operands[0] + " J") {
            add((at.name == PageOperator::LineWidth ? "width " : "cap ") + at.operands[0]);
        } else {
            add("raw " + Quoted(at.source));
        }
    }
    return text.empty() ? "" : text + ": ";
}

/// Words for a path or a text block that LinesOf may, or may not, turn into the same lines again.
Texts Attempts(const std::vector<Operation>& made)
{
    const auto point = [&](std::size_t i) { return Joined(made[i].operands, ","); };
    const PageOperator paint = made.back().name;
    if (made.size() == 9 && made[1].name == PageOperator::Curve) {
        const std::string &x = made[0].operands[0], &y = made[2].operands[1];
        const double r1 = Number(made[0].operands[1]) - Number(y), r2 = Number(made[2].operands[0]) - Number(x);
        const std::string word = paint == PageOperator::FillAndStroke ? "disc " : "circle ";
        return {word + x + ',' + y + " r " + NumberText(r1), word + x + ',' + y + " r " + NumberText(r2),
                word + x + ',' + y + Printed(" r %.3g", r1), word + x + ',' + y + Printed(" r %.5g", r1)};
    }
    if (made.size() >= 5 && made[0].name == PageOperator::BeginText && made[made.size() - 2].operands.empty()) {
        const bool plain = made.size() == 5;
        const std::string source = made[made.size() - 2].source;
        const Texts& m = made[2].operands;
        const std::string at = plain ? point(2) : m.size() == 6 ? m[4] + ',' + m[5] : "";
        const std::string font = made[1].source.substr(2, made[1].source.find(' ') - 2);
        const std::string text = Joined({"text", Quoted(source.substr(1, source.rfind(')') - 1)), "at", at, "font",
                                         font, "size", made[1].operands[0]});
        if (plain || m.size() != 6) {
            return {text};
        }
        const double angle = std::atan2(Number(m[1]), Number(m[0])) / 3.1415927 * 180.0;
        const std::string from = "from " + point(3);
        Texts attempts;
        for (int decimals = 0; decimals < 10; ++decimals) {
            attempts.push_back(Joined({text, Printed("turned %.*f", decimals, angle), from}));
        }
        attempts.push_back(Joined({text, "matrix", m[0], m[1], m[2], m[3], from}));
        return attempts;
    }
    Texts points;
    for (std::size_t i = 0; i + 1 < made.size(); ++i) {
        points.push_back(point(i));
    }
    return {(paint == PageOperator::Fill ? "fill "
             : points.size() == 2        ? "line "
                                         : "path ") +
            Joined(points, " - ")};
}

std::string ThingText(const std::vector<Operation>& settings, const std::vector<Operation>& made)
{
    Texts lines, raw;
    for (const auto* part : {&settings, &made}) {
        for (const Operation& operation : *part) {
            lines.push_back(operation.source);
            raw.push_back("raw " + Quoted(operation.source));
        }
    }
    for (const std::string& words : made.empty() ? Texts{"nothing"} : Attempts(made)) {
        if (std::string text = SettingsText(settings) + words; LinesOf(text) == lines) {
            return text;
        }
    }
    return Joined(raw) + ": nothing";
}

Texts ThingsOf(std::string_view content)
{
    Pens pens;
    const PageDamage damage = ReadPage(content, pens);
    EXPECT_EQ(damage.message, "") << "line " << damage.line;
    Texts texts;
    std::vector<Operation> settings, made;
    PageReader reader(content);
    const auto end = [&](bool drawn) {
        const std::string pen =
            drawn && texts.size() < pens.pens.size() ? " {" + pens.pens[texts.size()] + '}' : "";
        texts.push_back(ThingText(settings, made) + pen);
        settings.clear();
        made.clear();
    };
    using enum PageOperator;
    while (reader.Next()) {
        const PageOperator name = reader.Operator();
        Operation operation{name, std::string(reader.Source()), {}};
        if (name != ShowText) {
            operation.operands = Split(operation.source, " ");
            operation.operands.pop_back();
            std::erase_if(operation.operands, [](const std::string& word) { return word[0] == '/'; });
        }
        const bool sets = name == StrokeColor || name == FillColor || name == LineWidth || name == LineCap ||
                          name == Dash || name == Scale;
        (sets && made.empty() ? settings : made).push_back(operation);
        if (name == Stroke || name == Fill || name == FillAndStroke || name == EndText) {
            end(true);
        }
    }
    if (!settings.empty() || !made.empty()) {
        end(false);
    }
    EXPECT_EQ(texts.size(), pens.pens.size() + (texts.empty() || texts.back().ends_with('}') ? 0U : 1U));
    return texts;
}

// Folding: things that differ in numbers and texts only.

bool IsField(std::string_view word)
{
    return word == "=" || word[0] == '"' ||
           (word.find_first_not_of("0123456789.+-|") == std::string_view::npos && word != "-");
}

/// A thing as what stands between its fields, with the fields.
struct FormOfThing {
    std::string frame;  ///< a NUL for each field
    Texts fields;
};

FormOfThing FormOf(const std::string& thing)
{
    FormOfThing form;
    std::string word;
    bool quoted = false;
    const auto end = [&] {
        const bool isField = !word.empty() && IsField(word);
        if (isField) {
            form.fields.push_back(word);
        }
        form.frame += isField ? std::string(1, '\0') : word;
        word.clear();
    };
    for (const char c : thing) {
        quoted = quoted != (c == '"');
        if (!quoted && std::string_view(" ,:{}").find(c) != std::string_view::npos) {
            end();
            form.frame += c;
        } else {
            word += c;
        }
    }
    end();
    return form;
}

std::string TextOf(const FormOfThing& form)
{
    std::string text;
    auto field = form.fields.begin();
    for (const char c : form.frame) {
        text += c == '\0' ? *field++ : std::string(1, c);
    }
    return text;
}

/// The field of the k-th thing of a run.
std::string FieldAt(const std::string& field, std::size_t k)
{
    if (field[0] == '"' || field.find('|') != std::string::npos) {
        const std::string mark = field[0] == '"' ? "\"" : "";
        std::istringstream list(field.substr(mark.size(), field.size() - 2 * mark.size()) + '|');
        Texts values;
        for (std::string value; std::getline(list, value, '|');) {
            values.push_back(value);
        }
        return mark + (values.size() == 1 ? values[0] : values.at(k)) + mark;
    }
    const std::size_t sign = field.find_first_of("+-", 1);
    return sign == std::string::npos
               ? field
               : NumberText(Number(field) + static_cast<double>(k) * Number(field.substr(sign)));
}

std::string ThingAt(const std::string& line, std::size_t k)
{
    FormOfThing form = FormOf(line);
    for (std::size_t i = 0; i < form.fields.size(); ++i) {
        form.fields[i] = form.fields[i] == "=" ? form.fields.at(i - 2) : FieldAt(form.fields[i], k);
    }
    return TextOf(form);
}

/// START+STEP if that gives each of the texts exactly, otherwise empty.
std::string Progression(const Texts& column)
{
    const double start = Number(column[0]), range = Number(column.back()) - start;
    for (int decimals = 0; column.size() > 2 && decimals < 10; ++decimals) {
        const std::string step = Printed("%+.*f", decimals, range / static_cast<double>(column.size() - 1));
        bool fits = true;
        for (std::size_t k = 0; k < column.size() && fits; ++k) {
            fits = FieldAt(column[0] + step, k) == column[k];
        }
        if (fits) {
            return column[0] + step;
        }
    }
    return "";
}

/// The column as one field; empty if that takes a list and none is wanted.
std::string FoldedColumn(const Texts& column, bool listed)
{
    if (std::all_of(column.begin(), column.end(), [&](const std::string& text) { return text == column[0]; })) {
        return column[0];
    }
    if (column[0][0] == '"') {
        std::string list;
        for (const std::string& text : column) {
            list += (list.empty() ? "" : "|") + text.substr(1, text.size() - 2);
        }
        return '"' + list + '"';
    }
    const std::string progression = Progression(column);
    return progression.empty() && listed ? Joined(column, "|") : progression;
}

/// The `count` things from the first on, `period` apart, as one; empty if they cannot be.
std::string Folded(const std::vector<FormOfThing>& things, std::size_t first, std::size_t period, std::size_t count,
                   bool listed)
{
    constexpr int mostLists = 2;  // more of them are no longer read together
    int lists = 0;
    FormOfThing form = things[first];
    for (std::size_t i = 0; i < form.fields.size(); ++i) {
        Texts column, before;
        for (std::size_t k = 0; k < count; ++k) {
            column.push_back(things[first + k * period].fields[i]);
            before.push_back(i < 2 ? "" : things[first + k * period].fields[i - 2]);
        }
        form.fields[i] = FoldedColumn(column, listed);
        const bool isList = form.fields[i].find('|') != std::string::npos && column[0][0] != '"';
        if (isList && column == before) {
            form.fields[i] = "=";
        } else if (form.fields[i].empty() || (isList && ++lists > mostLists)) {
            return "";
        }
    }
    return TextOf(form);
}

struct Run {
    std::size_t count = 1;
    Texts lines;
    double gain = 0.0;

    std::size_t Covers() const { return count * lines.size(); }
};

/// The longest run of that period which begins at the thing.
Run RunAt(const std::vector<FormOfThing>& things, std::size_t first, std::size_t period, bool listed)
{
    constexpr std::size_t longestList = 24;
    std::size_t same = period;
    while (first + same < things.size() && things[first + same].frame == things[first + same - period].frame) {
        ++same;
    }
    for (std::size_t count = std::min(same / period, listed ? longestList : same); count >= 2; --count) {
        Run run{count, {}, 0.0};
        for (std::size_t i = 0; i < period; ++i) {
            const std::string line = Folded(things, first + i, period, count, listed);
            if (line.empty()) {
                break;
            }
            run.lines.push_back(line);
        }
        if (run.lines.size() == period) {
            const auto saved = static_cast<double>(run.Covers() - period - (period > 1 ? 1 : 0));
            run.gain = listed ? saved * 0.6 - 0.5 : saved;
            return run;
        }
    }
    return {};
}

Run BestRun(const std::vector<FormOfThing>& things, std::size_t first)
{
    constexpr std::size_t longestPeriod = 8;
    Run best{1, {TextOf(things[first])}, 0.0};
    for (std::size_t period = 1; period <= longestPeriod && first + period < things.size(); ++period) {
        for (const bool listed : {false, true}) {
            if (Run run = RunAt(things, first, period, listed); run.gain > best.gain) {
                best = run;
            }
        }
    }
    return best;
}

}  // namespace

std::string Describe(std::string_view content)
{
    constexpr std::size_t widest = 160;
    std::vector<FormOfThing> forms;
    for (const std::string& thing : ThingsOf(content)) {
        forms.push_back(FormOf(thing));
    }
    std::string text, pen;
    std::size_t lineStart = 0;
    for (std::size_t at = 0; at < forms.size();) {
        const Run run = BestRun(forms, at);
        at += run.Covers();
        const std::string& first = run.lines[0];
        const bool makesOne = run.count == 1;
        if (makesOne && pen == PenOf(first) && !pen.empty() &&
            text.size() - lineStart + first.size() < widest) {  // with those before it in one line
            text.replace(text.size() - pen.size() - 1, pen.size() + 1, "; " + first + '\n');
            continue;
        }
        lineStart = text.size();
        pen = makesOne ? PenOf(first) : "";
        text += makesOne ? "" : Printed("%zu x", run.count) + (run.lines.size() == 1 ? " " : "\n");
        for (const std::string& line : run.lines) {
            text += (run.lines.size() > 1 ? "  " : "") + line + '\n';
        }
    }
    return text;
}

std::vector<ContentLine> Unfold(const Texts& description)
{
    std::vector<ContentLine> content;
    for (std::size_t at = 0; at < description.size();) {
        const std::string& head = description[at];
        std::size_t x = head.find_first_not_of("0123456789");
        const bool isRun = x != std::string::npos && x > 0 && head.substr(x, 2) == " x";
        const std::size_t count = isRun ? std::stoul(head) : 1;
        const bool isBlock = isRun && x + 2 == head.size();
        Texts lines = {isRun && !isBlock ? head.substr(x + 3) : head};
        ++at;
        for (lines.resize(isBlock ? 0 : 1); isBlock && at < description.size() && description[at][0] == ' '; ++at) {
            lines.push_back(description[at].substr(2));
        }
        if (!isRun) {
            lines = Split(head, ";");
        }
        for (std::size_t k = 0; k < count; ++k) {
            for (const std::string& line : lines) {
                for (const std::string& text : LinesOf(ThingAt(line, k))) {
                    content.push_back({text, Printed("%zu of %zu: ", k + 1, count) + line});
                }
            }
        }
    }
    return content;
}

}  // namespace linealis::test
