#pragma once

#include "pipeline/document/SettingsFile.h"
#include "pipeline/form/FormCheck.h"
#include "pipeline/form/PaperForm.h"
#include "pipeline/page/PaperPage.h"

#include <concepts>
#include <functional>
#include <memory>
#include <string>

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

/// A wizard that fits ranges of data to the paper. It can fill in the form at every change of its fields.
class RangeWizard : public Wizard {
public:
    /// Suggests the ranges that the form shows. Keeps what was entered if the form still shows the result.
    virtual void Begin() = 0;
    /// Returns why OK would change nothing: a sentence with what was entered and what is possible. Empty if OK
    /// fills in the form.
    virtual Message Problem() const = 0;
    /// Describes what OK enters, one axis per line.
    virtual Message Outcome() const = 0;
};

/// An instance of a paper kind: its form and the operations on it.
struct Paper {
    std::unique_ptr<PaperForm> form;
    SettingsTable settings;
    std::function<PaperPage()> readPage;            ///< the only access of a page to the form
    std::unique_ptr<Wizard> wizard;                 ///< null if the kind has none
    std::unique_ptr<RangeWizard> rangeWizard = {};  ///< null if the kind has none
};

/// The form of a kind that makes pages: functions beside its type, found by argument-dependent lookup, that list
/// its fields as a settings file stores them, and read a page from it.
template <typename KindForm>
concept FormOfAKind = std::derived_from<KindForm, PaperForm> &&
    std::same_as<decltype(Settings(std::declval<KindForm&>())), SettingsTable> &&
    PageOfAKind<decltype(Read(std::declval<const KindForm&>()))>;

/// A form with warnings of its own, besides those of its fields.
template <typename KindForm>
concept FormThatWarns = requires(const KindForm& form)
{
    Warn(form, Read(form));
};

/// A page whose titles can be dragged: a function beside its type returns where a title with places of 0 stands.
template <typename KindPage>
concept PageWithTitles = requires(const KindPage& page)
{
    TitleZero(page, Role());
};

/// A form that a wizard can fill in.
template <typename KindForm>
concept FormWithWizard = requires(KindForm& form)
{
    MakeWizard(form);
};

/// A form that a wizard can fill in from ranges of data.
template <typename KindForm>
concept FormWithRangeWizard = requires(KindForm& form)
{
    MakeRangeWizard(form);
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
        if constexpr (FormThatWarns<KindForm>) {
            warnings = Warn(kindForm, read);
        }
        std::vector<PrintedField> printed = PrintedFields(kindForm);
        if constexpr (PageWithTitles<decltype(read)>) {
            for (PrintedField& field : printed) {
                field.zero = TitleZero(read, field.role);
            }
        }
        PaperPage page = PageOf(std::move(read));
        page.warnings = FormWarnings(kindForm, page.frame, std::move(warnings));
        page.printed = std::move(printed);
        return page;
    };
    if constexpr (FormWithWizard<KindForm>) {
        paper.wizard = MakeWizard(*form);
    }
    if constexpr (FormWithRangeWizard<KindForm>) {
        paper.rangeWizard = MakeRangeWizard(*form);
    }
    paper.form = std::move(form);
    return paper;
}

}  // namespace linealis
