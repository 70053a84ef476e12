#pragma once

#include "desktop/system/DesktopPlatform.h"
#include "kinds/PaperKinds.h"
#include "platform/ScreenlessPlatform.h"

#include <QComboBox>
#include <QObject>
#include <QString>
#include <memory>
#include <optional>
#include <string>

namespace linealis::desktop {

/// The paper on the backs.
struct PaperOfBack {
    const PaperKind* kind = nullptr;
    std::unique_ptr<PaperWindow> window;  ///< null: none
};

/// The choice of what a pad has on its backs: nothing, the front again, a kind of paper or one of its presets, or a
/// form in a file. A kind and a preset take over the paper of the front.
class PadBack final : public QObject {
    Q_OBJECT

public:
    /// `theFront` is the page on the front, made from `theFrontForm`.
    PadBack(DesktopPlatform& thePlatform, const PaperForm& theFrontForm, const PaperPage& theFront);

    /// The list of backs. The caller places both lists, and deletes them.
    QComboBox& Backs() const { return *backs; }
    /// The list of presets of the chosen back.
    QComboBox& Presets() const { return *presets; }

    /// Returns the page for the backs; nothing if they stay blank.
    std::optional<PaperPage> Page() const;
    /// Whether the page for the backs is that of the front form.
    bool IsFrontForm() const;
    /// Returns the form of the page for the backs, as a file carries it. Empty if the backs stay blank, or have the
    /// front form.
    std::string Carried() const;

    /// Tells whether the fronts have the page of the form, or those of a table, which is laid over it.
    void SetFrontIsTable(bool isTable);

signals:
    void Changed();
    /// Emitted with the reason, in words, if the chosen file cannot be used. The choice stays as it was.
    void Refused(const QString& why);

private:
    void FillBacks();
    /// Lists the presets of the chosen back.
    void FillPresets();
    /// Takes over the choice in the list of backs. Asks for the file if it is one.
    void Choose();
    /// Makes the paper of the chosen kind or preset.
    void MakePaper();
    /// Reads the form in a file. Returns why it cannot be used, or an empty text.
    QString Read(const FolderItem& given);
    /// Returns an empty text if the page of the window fits the front.
    QString WhyUnfit(const PaperWindow& read) const;

    DesktopPlatform& platform;
    const PaperForm& frontForm;
    const PaperPage& front;
    QComboBox* backs = new QComboBox;
    QComboBox* presets = new QComboBox;
    int chosen = 0;                   ///< the index of the back in the list
    FolderItem file;                  ///< that the back comes from; empty if it comes from none
    ScreenlessPlatform readPlatform;  ///< of the window below
    PaperOfBack paper;
};

}  // namespace linealis::desktop
