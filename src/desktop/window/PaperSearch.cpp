#include "desktop/window/PaperSearch.h"

#include "app/OwnPresets.h"
#include "desktop/system/RecentFiles.h"

#include <algorithm>
#include <initializer_list>
#include <set>
#include <utility>

namespace linealis {

namespace {

constexpr std::size_t mostSuggestions = 6;

/// Returns the UTF-8 text in lowercase. Converts ASCII and the letters of Latin-1, which are encoded as 0xC3 and a
/// second byte. There, too, a capital and its small letter are 0x20 apart; 0x97 is the multiplication sign.
std::string InSmallLetters(std::string_view text)
{
    constexpr char latin1 = '\xC3';
    constexpr char multiplicationSign = '\x97';
    constexpr char lastCapital = '\x9E';
    constexpr int toSmall = 'a' - 'A';
    std::string small(text);
    char before = 0;
    for (char& c : small) {
        const auto isCapital = [&](char first, char last) { return c >= first && c <= last; };
        if (isCapital('A', 'Z') ||
            (before == latin1 && isCapital('\x80', lastCapital) && c != multiplicationSign)) {
            c = static_cast<char>(c + toSmall);
        }
        before = c;
    }
    return small;
}

std::vector<std::string> WordsOf(std::string_view text)
{
    constexpr std::string_view blanks = " \t\n";
    std::vector<std::string> words;
    while (true) {
        text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
        if (text.empty()) {
            return words;
        }
        const std::string_view word = text.substr(0, text.find_first_of(blanks));
        words.push_back(InSmallLetters(word));
        text.remove_prefix(word.size());
    }
}

/// Collects the hits of one search.
class PaperSearch {
public:
    PaperSearch(std::string_view text, FolderItem thePreferencesFolder, bool metric, const Language& theLanguage)
        : words(WordsOf(text)), preferencesFolder(std::move(thePreferencesFolder)), isMetric(metric),
          language(theLanguage)
    {}

    std::vector<PaperHit> Find()
    {
        AddKinds();
        AddRecentFiles();
        AddPresets();
        AddOwnPresets();
        return std::move(hits);
    }

    std::vector<PaperHit> FindPresets()
    {
        AddPresets();
        AddOwnPresets();
        std::stable_sort(hits.begin(), hits.end(),
                         [](const PaperHit& a, const PaperHit& b) { return GroupOf(a) < GroupOf(b); });
        return std::move(hits);
    }

    std::vector<PaperHit> Suggest()
    {
        AddRecentFiles();
        AddAPresetPerKind();
        return std::move(hits);
    }

private:
    /// Adds the hit if every word occurs in one of its texts.
    void AddIfFound(PaperHit hit, std::initializer_list<std::string_view> texts)
    {
        std::string searched;
        for (const std::string_view text : texts) {
            searched += InSmallLetters(text) + "\n" + InSmallLetters(language.Text(text)) + "\n";
        }
        if (std::all_of(words.begin(), words.end(),
                        [&](const std::string& word) { return searched.find(word) != std::string::npos; })) {
            hits.push_back(std::move(hit));
        }
    }

    void AddKinds()
    {
        for (const PaperKind& kind : PaperKinds()) {
            AddIfFound({PaperHit::Sort::Kind, &kind, std::string(kind.galleryTitle), nullptr, {}},
                       {kind.title, kind.galleryTitle, kind.menuText, kind.name});
        }
    }

    void AddPresets()
    {
        for (const Preset* const preset : PresetsFor(isMetric)) {
            const PaperKind& kind = KindOf(*preset);
            AddIfFound({PaperHit::Sort::Preset, &kind, std::string(preset->title), preset, {}},
                       {preset->title, preset->id, preset->keywords, kind.galleryTitle});
        }
    }

    void AddOwnPresets()
    {
        const OwnPresets own(preferencesFolder);
        for (const PaperKind& kind : PaperKinds()) {
            for (const OwnPreset& preset : own.List(kind)) {
                AddIfFound({PaperHit::Sort::OwnPreset, &kind, preset.name, nullptr, preset.file},
                           {preset.name, kind.galleryTitle});
            }
        }
    }

    void AddRecentFiles()
    {
        for (const FolderItem& file : RecentFiles(preferencesFolder).List()) {
            const PaperKind& kind = *FindPaperKindOf(file.Path());
            AddIfFound({PaperHit::Sort::RecentFile, &kind, file.Name(), nullptr, file},
                       {file.Name(), kind.galleryTitle});
        }
    }

    /// Adds the first preset of each kind, up to mostSuggestions.
    void AddAPresetPerKind()
    {
        std::set<std::string_view> suggested;
        for (const Preset* const preset : PresetsFor(isMetric)) {
            if (suggested.size() < mostSuggestions && suggested.insert(preset->kind).second) {
                hits.push_back({PaperHit::Sort::Preset, &KindOf(*preset), std::string(preset->title), preset, {}});
            }
        }
    }

    std::vector<std::string> words;
    FolderItem preferencesFolder;
    bool isMetric;
    const Language& language;
    std::vector<PaperHit> hits;
};

}  // namespace

std::vector<PaperHit> FindPapers(std::string_view words, const FolderItem& preferencesFolder, bool isMetric,
                                 const Language& language)
{
    PaperSearch search(words, preferencesFolder, isMetric, language);
    return WordsOf(words).empty() ? search.Suggest() : search.Find();
}

std::vector<PaperHit> FindPresets(std::string_view words, const FolderItem& preferencesFolder, bool isMetric,
                                  const Language& language)
{
    return PaperSearch(words, preferencesFolder, isMetric, language).FindPresets();
}

PresetGroup GroupOf(const PaperHit& hit)
{
    return hit.preset == nullptr ? PresetGroup::Yours : hit.preset->group;
}

}  // namespace linealis
