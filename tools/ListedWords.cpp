// Prints the texts that the program lists in its forms and tables, as entries of a message catalog in gettext's
// format. They stand in declarations, where a tool that reads sources cannot tell them from names.
//
//   linealis_listed_words

#include "app/MenuBar1.h"
#include "check/Calibration.h"
#include "exchange/PageFormats.h"
#include "kinds/PaperKinds.h"
#include "kinds/Presets.h"
#include "pipeline/form/FieldWords.h"
#include "pipeline/form/FormLayout.h"
#include "pipeline/page/PaperSizes.h"
#include "platform/ScreenlessPlatform.h"
#include "services/GalleryWindow.h"
#include "services/PrefsWindow.h"

#include <algorithm>
#include <iostream>
#include <map>
#include <string>
#include <string_view>

namespace {

using namespace linealis;

/// The texts and, for translators, where each is shown first.
class Words {
public:
    void Add(std::string_view text, std::string_view place)
    {
        if (text.find_first_not_of("0123456789.,- ") != std::string_view::npos && text != "\r") {
            words.try_emplace(std::string(text), place);
        }
    }

    void Print() const
    {
        for (const auto& [text, place] : words) {
            std::cout << "#. " << place << "\nmsgid \"" << Escaped(text) << "\"\nmsgstr \"\"\n\n";
        }
    }

private:
    static std::string Escaped(std::string_view text)
    {
        std::string escaped;
        for (const char c : text) {
            escaped += c == '\n' ? "\\n" : c == '"' ? "\\\"" : c == '\\' ? "\\\\" : std::string(1, c);
        }
        return escaped;
    }

    std::map<std::string, std::string> words;
};

/// Adds the caption as the form shows it and as sentences name it: on one line and without its colon.
void AddCaption(std::string caption, std::string_view place, Words& words)
{
    if (caption.ends_with(':')) {
        caption.pop_back();
    }
    words.Add(caption, place);
    std::replace(caption.begin(), caption.end(), '\n', ' ');
    words.Add(caption, place);
}

void AddControl(const Control& control, std::string_view kind, Words& words)
{
    const std::string place = "a form: " + std::string(kind);
    if (control.Name() != "StaticFileName") {  // the name of a file
        AddCaption(CaptionLines(control), place, words);
    }
    words.Add(control.Declared().fullName, place);
    words.Add(control.Declared().sets, "which lines a weight applies to");
    if (control.Kind() == ControlKind::Popup || control.Kind() == ControlKind::Radio) {
        for (const std::string_view item : static_cast<const Choice&>(control).Items()) {
            words.Add(item, place + ", an item of " + std::string(control.Name()));
        }
    }
}

void AddForm(Form& form, std::string_view kind, Words& words)
{
    for (const Control* const control : form.Controls()) {
        AddControl(*control, kind, words);
    }
    for (const LaidGroup& group : LayoutOf(form)) {
        AddCaption(TitleOf(group.group).English(), "a group of a form", words);
        for (const LaidRow& row : group.rows) {
            for (const LaidControl& control : row.places) {
                words.Add(control.rowName, "a row of a form: " + std::string(kind));
            }
        }
    }
}

void AddKind(const PaperKind& kind, Words& words)
{
    words.Add(kind.title, "the title of a window");
    words.Add(kind.galleryTitle, "a kind of paper");
    const ScreenlessPlatform platform;
    const Paper paper = kind.makePaper(platform);
    AddForm(*paper.form, kind.name, words);
    // Captions that depend on the unit.
    auto& units = paper.form->Get<Popup>("PopupUnits");
    for (const int unit : {1, 0}) {
        units.SetListIndex(unit);
        AddForm(*paper.form, kind.name, words);
    }
    for (Wizard* const wizard : {paper.wizard.get(), static_cast<Wizard*>(paper.rangeWizard.get())}) {
        if (wizard != nullptr) {
            AddForm(wizard->Fields(), "wizard of " + std::string(kind.name), words);
        }
    }
}

void AddTables(Words& words)
{
    for (std::size_t i = 0; i <= static_cast<std::size_t>(Meaning::HydraulicNumber); ++i) {
        words.Add(FactsOf(static_cast<Meaning>(i)).hint, "what to enter in a field");
    }
    for (const std::string_view unit : {"in", "cm", "pt"}) {
        words.Add(unit, "a unit");
    }
    for (const std::string_view value : {"on", "off"}) {
        words.Add(value, "the value of a check box");
    }
    for (const NamedPaper& paper : NamedPapers()) {
        words.Add(paper.name, "a size of paper");
    }
    for (const CalibrationPaper& paper : CalibrationPapers()) {
        words.Add(paper.title, "a size of paper");
    }
    for (const PageFormat& format : PageFormats()) {
        words.Add(format.words, "a format of pages");
    }
    for (const Preset& preset : Presets()) {
        words.Add(preset.title, "a preset");
    }
    for (int group = 0; group <= static_cast<int>(PresetGroup::Yours); ++group) {
        words.Add(TitleOf(static_cast<PresetGroup>(group)), "a group of presets");
    }
    for (const Menu& menu : MenuBar1()) {
        words.Add(menu.text, "a menu");
        for (const MenuItem& item : menu.items) {
            words.Add(item.text, "an item of a menu");
        }
    }
    words.Add(GalleryWindow::title, "the title of a window");
    words.Add(GalleryWindow::prompt, "the gallery");
}

}  // namespace

int main()
{
    Words words;
    for (const PaperKind& kind : PaperKinds()) {
        AddKind(kind, words);
    }
    AddTables(words);
    bool noUpdateCheck = false;
    PrefsWindow preferences(noUpdateCheck);
    AddForm(preferences.form, "preferences", words);
    words.Print();
    return 0;
}
