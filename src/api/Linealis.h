#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace linealis {

/// A sheet of printable paper: a form whose controls are set by name, and the page that the form describes. This
/// class is the whole interface that an installation offers to other programs. It stays compatible within a major
/// version.
///
/// Every control has a name, such as EditTopMargin, and an alias, such as top-margin; all functions accept both.
/// Lengths are in the unit that the control PopupUnits shows; line weights and text sizes are always in points
/// (1/72 inch).
///
/// Sheets share no state, so different threads can use different sheets at the same time. A sheet that was moved
/// from can only be destroyed or assigned to.
class Sheet {
public:
    /// Returns the names of the kinds of paper, such as "grid".
    static std::vector<std::string> Kinds();
    /// Returns the names of the presets, such as "squares-5mm".
    static std::vector<std::string> Presets();

    /// Creates a sheet with the opening values of a kind, or with the values of a preset. Throws
    /// std::invalid_argument if neither has that name; the message lists both.
    explicit Sheet(std::string_view kindOrPreset);
    Sheet(Sheet&& other) noexcept;
    Sheet& operator=(Sheet&& other) noexcept;
    ~Sheet();

    /// Returns the names of the controls, in the order of the form. Labels are not included.
    std::vector<std::string> Controls() const;

    /// Returns the value of a control, written as Set accepts it. Throws std::invalid_argument if there is no such
    /// control.
    std::string Get(std::string_view control) const;

    /// Sets a control as a user would. Accepted values are:
    /// - for a text field, any text; a length may have a unit, such as "5mm",
    /// - for a list, the text of an item, in any case, or #INDEX, counted from 0,
    /// - for a check box, "on" or "off",
    /// - for a color, #RRGGBB, #RGB, or a name, such as "gray".
    ///
    /// Controls that depend on this one are updated: for example, a change of units converts the lengths. Throws
    /// std::invalid_argument if there is no such control or if it does not accept the value; the message lists what
    /// is possible. A text field accepts any text: Warnings() reports what the page cannot use.
    void Set(std::string_view control, std::string_view value);

    /// Returns the likely problems of the page, one line of text each: a field whose text the page cannot use,
    /// lines that are too thin to print, numbers that overlap, and more. A page with more than 8 MiB of drawing is
    /// not examined itself; only its form is. If the page cannot be made at all (see Page), one of the warnings
    /// says why.
    std::vector<std::string> Warnings() const;

    /// Returns the form as the content of a settings file.
    std::string Settings() const;

    /// Fills in the form from the content of a settings file of the same kind. The missing fields of a short file
    /// read as empty. Damaged content, or that of another kind, is not detected. The PDF file that the settings
    /// name is ignored.
    void Load(std::string_view settings);

    /// Returns the page as the content of a PDF 1.4 file, dated with the current time, or with SOURCE_DATE_EPOCH if
    /// that environment variable is set. Throws std::runtime_error if the page would have more than 1 GiB of
    /// drawing or take too many drawing steps.
    std::string Page() const;

private:
    struct Parts;
    std::unique_ptr<Parts> parts;
};

}  // namespace linealis
