#pragma once

#include "exchange/FormJson.h"
#include "pipeline/form/FormLayout.h"

#include <string>
#include <vector>

namespace linealis::web {

/// Describes a form as JSON, in the language of the page: once what stays, and after every change what may differ.
class FormText {
public:
    /// Form and language must outlive the description.
    FormText(const Form& theForm, const Language& theLanguage);
    FormText(const FormText&) = delete;
    FormText& operator=(const FormText&) = delete;

    /// Returns the groups with their rows, cells and controls.
    Json Description() const;

    /// Returns the value of every control, whether it is enabled, its caption, remark and hint, the readouts, and
    /// what is known about the groups. `summary` describes the page.
    Json State(const Message& summary) const;

    /// Returns the row of a table that begins with the control, or null.
    const LaidRow* RowOf(std::string_view firstControl) const;

private:
    /// A readout and the fields that it belongs to.
    struct ReadoutPlace {
        Form::Row fields;
        ReadoutParts parts;
    };

    Json DescribeRow(const LaidRow& row, std::size_t& readout) const;
    Json DescribeControl(const LaidControl& place, std::size_t& readout) const;

    const Form& form;
    const Language& language;
    std::vector<LaidGroup> groups;
    std::vector<ReadoutPlace> readouts;  ///< in form order
};

}  // namespace linealis::web
