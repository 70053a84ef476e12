#pragma once

#include "pipeline/document/SettingsFile.h"
#include "pipeline/form/FormCheck.h"
#include "pipeline/form/PaperForm.h"
#include "pipeline/page/PaperPage.h"

#include <functional>
#include <memory>

namespace linealis {

/// A dialog that fills a form from what its user says of the data. Keeps what it last held.
class Wizard {
public:
    Wizard() = default;
    Wizard(const Wizard&) = delete;
    Wizard& operator=(const Wizard&) = delete;
    virtual ~Wizard() = default;

    virtual Form& Fields() = 0;
    /// OK: fills the form.
    virtual void PushButton1_Action() = 0;
    /// Cancel: changes nothing.
    virtual void PushButton2_Action() {}
};

/// A paper kind at work: its form, and what the program does with that.
struct Paper {
    std::unique_ptr<PaperForm> form;
    SettingsTable settings;
    std::function<PaperPage()> readPage;  ///< the only look at the form
    std::unique_ptr<Wizard> wizard;       ///< null: the kind has none
};

/// The paper of a kind: of its form, and of the functions Settings, Read and, if it has them, Warn and MakeWizard
/// for it.
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
        PaperPage page = PageOf(std::move(read));
        page.warnings = FormWarnings(kindForm, page.frame, std::move(warnings));
        page.printed = PrintedFields(kindForm);
        return page;
    };
    if constexpr (requires { MakeWizard(*form); }) {
        paper.wizard = MakeWizard(*form);
    }
    paper.form = std::move(form);
    return paper;
}

}  // namespace linealis
