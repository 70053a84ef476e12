#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace linealis {

/// A sheet of printable paper: a form, filled in by the names of its controls, and the page that comes of it. This
/// is all that an installation offers to other programs, and it stays as it is within a major version.
///
/// A control has a name, such as EditTopMargin, and an alias, such as top-margin; either will do. Lengths are in
/// the unit that the control PopupUnits shows. Sheets share nothing: each may be used on a thread of its own.
class Sheet {
public:
    /// The kinds of paper, such as "grid".
    static std::vector<std::string> Kinds();
    /// The presets, such as "squares-5mm".
    static std::vector<std::string> Presets();

    /// The form of a kind as it opens, or a preset. Throws std::invalid_argument if there is none of that name.
    explicit Sheet(std::string_view kindOrPreset);
    Sheet(Sheet&& other) noexcept;
    Sheet& operator=(Sheet&& other) noexcept;
    ~Sheet();

    /// The names of its controls, in the order of the form.
    std::vector<std::string> Controls() const;

    /// What a control holds, as Set takes it. Throws std::invalid_argument if there is no such control.
    std::string Get(std::string_view control) const;

    /// Sets a control as a person would: a text; the item of a list, in any case, or its #INDEX from 0; "on" or
    /// "off"; a color as #RRGGBB. What follows from it, such as lengths in a new unit, follows. Throws
    /// std::invalid_argument, with what is possible, if there is no such control or it has no such value.
    void Set(std::string_view control, std::string_view value);

    /// What will disappoint on the page: a field whose text it cannot use, lines too thin to print, and more, a
    /// line each that names the field. Looks at the page if it holds at most 8 MiB of drawing.
    std::vector<std::string> Warnings() const;

    /// The form as the bytes of a settings file.
    std::string Settings() const;

    /// Fills in the form from the bytes of a settings file of its kind. What they lack reads as empty.
    void Load(std::string_view settings);

    /// The page as the bytes of a PDF 1.4 file. Throws std::runtime_error if it would hold more than 1 GiB of
    /// drawing.
    std::string Page() const;

private:
    struct Parts;
    std::unique_ptr<Parts> parts;
};

}  // namespace linealis
