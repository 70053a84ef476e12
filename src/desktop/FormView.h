#pragma once

#include "pipeline/PaperForm.h"

#include <QWidget>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

class QGridLayout;
class QHBoxLayout;
class QLabel;
class QVBoxLayout;

namespace linealis::desktop {

/// A form on the screen: the widgets of its controls, in their groups, and the way back from what the user does to
/// the form. A widget's object name is its control's name.
class FormView final : public QWidget {
    Q_OBJECT

public:
    /// `onSwatch` is called when the user clicks a colour swatch.
    FormView(PaperForm& theForm, std::function<void(std::string_view name)> onSwatch, QWidget* parent = nullptr);
    ~FormView() override;
    FormView(const FormView&) = delete;
    FormView& operator=(const FormView&) = delete;

    /// Puts a window's own buttons to the right of the last group.
    void AddBesideLastGroup(QWidget* widget);

private:
    using State = PaperForm::State;
    using Row = std::vector<const State*>;

    std::vector<Row> RowsOf(Group group) const;
    void AddGroup(Group group);
    void AddRow(QGridLayout& grid, const Row& row);
    void AddHeadings(QGridLayout& grid, const Row& row);
    void AddRemark(QGridLayout& grid, const Row& row);

    QWidget* MakeWidget(const State& state);
    QWidget* MakeTextField(const State& state);
    QWidget* MakePopup(const State& state);
    QWidget* MakeCheckBox(const State& state);
    QWidget* MakeRadioGroup(const State& state);
    QWidget* MakeSwatch(const State& state);
    QLabel* MakeLabel(const State& state);
    /// The label of a field's caption, its buddy; null if the field has no caption before it.
    QLabel* MakeCaption(const State& state, QWidget* field);

    bool IsCaptionOfAField(std::string_view name) const;
    void Refresh(std::string_view name);
    void ShowRemark(std::string_view name);

    PaperForm& form;
    std::function<void(std::string_view name)> swatchClicked;
    QVBoxLayout* column;
    QHBoxLayout* lastRow = nullptr;
    std::map<std::string_view, std::function<void(const State&)>> refreshers;
    std::map<std::string_view, QWidget*> fields;
    std::map<std::string_view, QLabel*>
        captions;  ///< by the name of the field, where the caption has no name itself
    struct Remark {
        QLabel* label;
        Row row;
    };
    std::map<std::string_view, std::size_t> remarkOf;
    std::vector<Remark> remarks;
};

}  // namespace linealis::desktop
