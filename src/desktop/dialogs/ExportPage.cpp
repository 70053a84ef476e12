#include "desktop/dialogs/ExportPage.h"

#include "desktop/dialogs/DialogColumn.h"
#include "desktop/system/FileDialogs.h"
#include "desktop/system/Text.h"
#include "desktop/system/WindowSettings.h"
#include "exchange/PngPage.h"
#include "pdf/Units.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QImage>
#include <QLabel>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>
#include <optional>
#include <vector>

namespace linealis::desktop {

namespace {

const QString folderKey = QStringLiteral("folders/export");
const QString formatKey = QStringLiteral("export/format");
const QString resolutionKey = QStringLiteral("export/resolution");
const QString deviceKey = QStringLiteral("export/device");
const QString fitKey = QStringLiteral("export/fit");
const QString transparentKey = QStringLiteral("export/transparent");

/// Asks for the format, resolution, and background of the picture. Proposes the previous choice.
class ExportDialog final : public QDialog {
public:
    ExportDialog(const PaperSize& thePaper, QWidget* parent) : QDialog(parent), paper(thePaper)
    {
        setObjectName(QStringLiteral("export"));
        setWindowTitle(Translated("Export Page"));
        const WindowSettings settings;
        auto* const form = new QFormLayout;
        MakeDialogColumn(*this)->addLayout(form);
        const QString last = settings.value(formatKey).toString();
        for (const PageFormat& format : PageFormats()) {
            if (&format != &PageFormats().front()) {  // the first format is PDF, which Generate writes
                AddFormat(*form, format, last);
            }
        }
        device->setObjectName(QStringLiteral("ExportDevice"));
        device->addItem(Translated("No device"));
        for (const Device& each : Devices()) {
            device->addItem(ToQt(each.title), ToQt(each.name));
        }
        device->setCurrentIndex(std::max(0, device->findData(settings.value(deviceKey))));
        fit->setObjectName(QStringLiteral("ExportFit"));
        fit->setChecked(settings.value(fitKey, true).toBool());
        resolution->setObjectName(QStringLiteral("ExportResolution"));
        resolution->setRange(1, HighestDotsPerInch(paper));
        resolution->setSuffix(Translated(" dpi"));
        resolution->setValue(settings.value(resolutionKey, 300).toInt());
        transparent->setObjectName(QStringLiteral("ExportTransparent"));
        transparent->setChecked(settings.value(transparentKey).toBool());
        cut->setObjectName(QStringLiteral("ExportCut"));
        cut->setWordWrap(true);

        form->addRow(Translated("De&vice:"), device);
        form->addRow(QString(), fit);
        form->addRow(Translated("&Resolution:"), resolution);
        form->addRow(QString(), pixels);
        form->addRow(QString(), cut);
        form->addRow(QString(), transparent);
        auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
        buttons->addButton(Translated("&Export..."), QDialogButtonBox::AcceptRole);
        form->addRow(buttons);
        QObject::connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
        QObject::connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        QObject::connect(resolution, &QSpinBox::valueChanged, this, [this] { Follow(); });
        QObject::connect(fit, &QCheckBox::toggled, this, [this] { Follow(); });
        QObject::connect(device, &QComboBox::currentIndexChanged, this, [this] { Follow(); });
        Follow();
        chosen->button->setFocus();
    }

    const PageFormat& Format() const { return *chosen->format; }

    WriteOptions Options() const
    {
        WriteOptions options;
        options.dotsPerInch = resolution->value();
        options.isTransparent = transparent->isChecked();
        options.screen = ChosenScreen();
        options.fitsScreen = fit->isChecked();
        return options;
    }

    /// Stores the choice for the next dialog.
    void Keep() const
    {
        WindowSettings settings;
        settings.setValue(formatKey, ToQt(Format().name));
        settings.setValue(resolutionKey, resolution->value());
        settings.setValue(deviceKey, device->currentData());
        settings.setValue(fitKey, fit->isChecked());
        settings.setValue(transparentKey, transparent->isChecked());
    }

private:
    struct Choice {
        const PageFormat* format;
        QRadioButton* button;
    };

    void AddFormat(QFormLayout& form, const PageFormat& format, const QString& last)
    {
        auto* const button =
            new QRadioButton(QStringLiteral("&%1, %2").arg(ToQt(format.title), Translated(format.words)));
        button->setObjectName(QStringLiteral("Export%1").arg(ToQt(format.title)));
        form.addRow(button);
        if (chosen == nullptr || ToQt(format.name) == last) {
            button->setChecked(true);
        }
        choices.push_back({&format, button});
        chosen = &choices.front();  // push_back may have moved the choices; Follow finds the checked one
        QObject::connect(button, &QRadioButton::toggled, this, [this] { Follow(); });
    }

    /// Returns the screen of the chosen device, or nothing.
    std::optional<Screen> ChosenScreen() const
    {
        const int index = device->currentIndex();  // after "None"
        return index > 0 ? std::optional(Devices()[static_cast<std::size_t>(index - 1)].screen) : std::nullopt;
    }

    /// Updates the dialog after a change of the format, the device, or the resolution.
    void Follow()
    {
        for (const Choice& choice : choices) {
            chosen = choice.button->isChecked() ? &choice : chosen;
        }
        for (QWidget* const widget : std::initializer_list<QWidget*>{device, transparent, pixels}) {
            widget->setEnabled(Format().hasPixels);
        }
        const std::optional<Screen> screen = ChosenScreen();
        fit->setEnabled(Format().hasPixels && screen);
        resolution->setEnabled(Format().hasPixels && !screen);
        const PixelSize size = screen ? PixelSize{Turned(*screen, paper).width, Turned(*screen, paper).height}
                                      : PixelsOf(paper, resolution->value());
        pixels->setText(Translated("%1 by %2 pixels").arg(size.width).arg(size.height));
        cut->setVisible(Format().hasPixels && screen && !fit->isChecked() && IsCut(size, screen->dotsPerInch));
    }

    /// Whether the page, at true size, is larger than the picture. Paper made for a screen may be larger by less
    /// than a point.
    bool IsCut(const PixelSize& size, double dotsPerInch) const
    {
        const auto isLonger = [=](std::int64_t points, std::int64_t side) {
            return static_cast<double>(points - 1) / pointsPerInch * dotsPerInch >= static_cast<double>(side);
        };
        return isLonger(paper.width, size.width) || isLonger(paper.height, size.height);
    }

    PaperSize paper;
    std::vector<Choice> choices;
    const Choice* chosen = nullptr;
    QComboBox* device = new QComboBox;
    QCheckBox* fit = new QCheckBox(Translated("S&cale the page to the screen"));
    QSpinBox* resolution = new QSpinBox;
    QLabel* pixels = new QLabel;
    QLabel* cut = new QLabel(Translated("The page is larger than the screen and will be cut at its edges."));
    QCheckBox* transparent = new QCheckBox(Translated("&Transparent background"));
};

}  // namespace

ExportChoice AskForExport(const PaperSize& paper, const QString& name, QWidget* parent, const ModalRunner& runModal)
{
    ExportDialog options(paper, parent);
    if (runModal(options) != QDialog::Accepted) {
        return {};
    }
    options.Keep();
    const QString ending = ToQt(options.Format().name);
    QFileDialog dialog(parent, Translated("Save Picture"));
    GoToFolder(dialog, folderKey);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(QStringLiteral("%1 (*.%2)").arg(ToQt(options.Format().title), ending));
    dialog.setDefaultSuffix(ending);
    dialog.selectFile(name + QLatin1Char('.') + ending);
    if (runModal(dialog) != QDialog::Accepted) {
        return {};
    }
    KeepFolder(dialog, folderKey);
    QString path = dialog.selectedFiles().value(0);
    // The default suffix is not added to a name that has another one.
    if (!path.endsWith(QLatin1Char('.') + ending, Qt::CaseInsensitive)) {
        path += QLatin1Char('.') + ending;
    }
    return {path, &options.Format(), options.Options()};
}

QString ExportPage(const DrawnPage& page, const ExportChoice& choice, Turns& turns)
{
    const QString name = QFileInfo(choice.path).fileName();
    BinaryStream stream = FolderItem(std::filesystem::path(choice.path.toStdString())).CreateBinaryFile();
    if (stream.IsOpen()) {
        choice.format->write(page, choice.options, stream, turns);
        stream.Close();
    }
    if (stream.Error()) {
        return Translated("%1 was not written: %2").arg(name, ToQt(stream.Error().message()));
    }
    return Translated("Wrote %1").arg(name);
}

std::unique_ptr<QMimeData> PageForClipboard(const DrawnPage& page, const WriteOptions& options, Turns& turns)
{
    WriteOptions fitting = options;  // with a resolution that is not too high for the paper
    fitting.dotsPerInch =
        std::min<double>(options.dotsPerInch, HighestDotsPerInch({page.frame.paperWidth, page.frame.paperHeight}));
    auto data = std::make_unique<QMimeData>();
    for (const PageFormat& format : PageFormats()) {
        if (format.isPasted) {
            data->setData(ToQt(format.mimeType), QByteArray::fromStdString(BytesOf(format, page, fitting, turns)));
        }
    }
    return data;
}

}  // namespace linealis::desktop
