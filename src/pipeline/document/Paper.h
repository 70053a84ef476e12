#pragma once

#include "pipeline/document/SettingsFile.h"
#include "pipeline/form/FormCheck.h"
#include "pipeline/form/PaperForm.h"
#include "pipeline/page/PaperPage.h"

#include <functional>
#include <memory>

namespace linealis {

/// A dialog that fills in a form from a description of the data. Keeps its values from one use to the next.
class Wizard {
public:
    Wizard() = default;
    Wizard(const Wizard&) = delete;
    Wizard& operator=(const Wizard&) = delete;
    virtual ~Wizard() = default;

    /// Returns the controls of the dialog.
    virtual Form& Fields() = 0;
    /// OK: fills in the form.
    virtual void PushButton1_Action() = 0;
    /// Cancel: changes nothing.
    virtual void PushButton2_Action() {}
};

/// An instance of a paper kind: its form and the operations on it.
struct Paper {
    std::unique_ptr<PaperForm> form;
    SettingsTable settings;
    std::function<PaperPage()> readPage;  ///< the only access of a page to the form
    std::unique_ptr<Wizard> wizard;       ///< null if the kind has none
};

/// Creates the paper of a kind from its form type. Calls the overloads of Settings and Read for that type and, if
/// they exist, Warn, TitleZero and MakeWizard.
template <typename KindForm>
Paper MakePaper(const Platform& platform)
{
    auto form = std::make_unique<KindForm>();
    form->Event_Open(platform);
    form->RememberOpening();
    Paper paper;
    paper.settings = Settings(*form);
    paper.readPage = [&kindForm = std::as_const(*form)] {
        auto read = Read(kindForm);
        PageWarnings warnings;
        if constexpr (requires { Warn(kindForm, read); }) {
            warnings = Warn(kindForm, read);
        }
        std::vector<PrintedField> printed = PrintedFields(kindForm);
        if constexpr (requires { TitleZero(read, Role()); }) {
            for (PrintedField& field : printed) {
                field.zero = TitleZero(read, field.role);
            }
        }
        PaperPage page = PageOf(std::move(read));
        page.warnings = FormWarnings(kindForm, page.frame, std::move(warnings));
        page.printed = std::move(printed);
        return page;
    };
    if constexpr (requires { MakeWizard(*form); }) {
        paper.wizard = MakeWizard(*form);
    }
    paper.form = std::move(form);
    return paper;
}

}  // namespace linealis
