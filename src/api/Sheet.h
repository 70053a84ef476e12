#pragma once

#include "api/Table.h"
#include "check/PageCheck.h"
#include "exchange/FormJson.h"
#include "exchange/TableReader.h"
#include "kinds/PaperKinds.h"
#include "platform/ScreenlessPlatform.h"

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace linealis::api {

/// Thrown if a call cannot take what it was given. The message names that and what is possible.
struct BadInput : std::runtime_error {
    using runtime_error::runtime_error;
};

}  // namespace linealis::api

/// A form with its window. Its functions throw BadInput, UnknownInput, FormError, or PageGivenUp, and then leave it
/// as it was. linealis.h documents them.
struct linealis_sheet {
    /// The source is a kind, a preset, or a link.
    explicit linealis_sheet(std::string_view source);
    explicit linealis_sheet(const linealis::FormFile& file);

    const linealis::PaperKind& Kind() const { return *kind; }
    linealis::PaperForm& Form() const { return window->form; }
    /// Throws BadInput if there is no such control.
    const linealis::Control& ControlNamed(std::string_view name) const;

    void Set(std::string_view control, std::string_view value);
    void Type(std::string_view control, std::string_view text);
    void LayOver(const linealis::FormFile& file);
    /// Returns what is missing from the settings, or an empty text.
    std::string Load(std::string_view settings);
    std::string Settings() const { return window->SettingsBytes(); }
    void UseMarkers(const char* path);
    void TypeIntoWizard(std::string_view field, std::string_view text);
    void PressOkOfWizard();
    void Fit(const char* xRange, const char* yRange, const char* fineness);
    std::string Summary() const;
    linealis::PageWarnings Warnings() const;
    /// Draws the page, with the values of a row of a table laid over the form, which stays as it is. Throws
    /// UnknownInput if a value is not possible.
    linealis::DrawnPage Draw(const std::vector<linealis::CellValue>& row = {}) const;
    std::string Write(std::string_view format, double dotsPerInch, bool isTransparent) const;

private:
    void Open(const linealis::PaperKind& theKind);
    linealis::Wizard& WizardOrRefuse(linealis::Wizard* wizard, const char* what) const;

    linealis::ScreenlessPlatform platform;
    const linealis::PaperKind* kind = nullptr;
    std::unique_ptr<linealis::PaperWindow> window;  ///< refers to the platform, so it is destroyed first
    std::vector<std::string> given;                 ///< the names of the controls that were set
};
