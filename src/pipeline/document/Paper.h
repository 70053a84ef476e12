#pragma once

#include "pipeline/document/SettingsFile.h"
#include "pipeline/form/FormCheck.h"
#include "pipeline/form/PaperForm.h"
#include "pipeline/page/PaperPage.h"

#include <concepts>
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

/// The form of a kind that makes pages: functions beside its type, found by argument-dependent lookup, that list
/// its fields as a settings file stores them, and read a page from it.
template <typename KindForm>
concept FormOfAKind = std::derived_from<KindForm, PaperForm> && requires(KindForm& form, const KindForm& filledIn)
{
    {
        Settings(form)
        } -> std::same_as<SettingsTable>;
    {
        Read(filledIn)
        } -> PageOfAKind;
};

/// A form with warnings of its own, besides those of its fields.
template <typename KindForm>
concept WarningForm = requires(const KindForm& form)
{
    {
        Warn(form, Read(form))
        } -> std::convertible_to<PageWarnings>;
};

/// A form that a wizard can fill in.
template <typename KindForm>
concept FormWithWizard = requires(KindForm& form)
{
    {
        MakeWizard(form)
        } -> std::convertible_to<std::unique_ptr<Wizard>>;
};

/// Creates the paper of a kind from its form type.
template <FormOfAKind KindForm>
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
        if constexpr (WarningForm<KindForm>) {
            warnings = Warn(kindForm, read);
        }
        PaperPage page = PageOf(std::move(read));
        page.warnings = FormWarnings(kindForm, page.frame, std::move(warnings));
        page.printed = PrintedFields(kindForm);
        return page;
    };
    if constexpr (FormWithWizard<KindForm>) {
        paper.wizard = MakeWizard(*form);
    }
    paper.form = std::move(form);
    return paper;
}

}  // namespace linealis
