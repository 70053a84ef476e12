#include "desktop/window/PresetPicker.h"

#include "DesktopTestSupport.h"
#include "app/OwnPresets.h"
#include "desktop/system/WindowSettings.h"
#include "desktop/window/PresetPictures.h"

#include <QListWidget>
#include <map>

namespace linealis::test {
namespace {

using desktop::PresetPicker;

class PresetPickerTest : public DesktopTest {
protected:
    void SetUp() override
    {
        desktop::WindowSettings().clear();
        DesktopTest::SetUp();
    }

    static std::string Selected(const PresetPicker& picker)
    {
        const QListWidgetItem* const tile = Child<QListWidget>(picker, "PresetPickerList").currentItem();
        return tile == nullptr ? "" : tile->text().toStdString();
    }
    static std::string Group(const PresetPicker& picker)
    {
        return Child<QListWidget>(picker, "PresetPickerGroups").currentItem()->text().toStdString();
    }

    ScreenlessPlatform platform;
};

TEST_F(PresetPickerTest, KeysChooseAPresetOfAnyKind)
{
    QWidget& polar = OpenPaper("polar");
    EXPECT_FALSE(OwnPresets(PreferencesFile(""))
                     .Save("Mine", *FindPaperKind("grid"), *MakeWindow(*FindPreset("squares-1mm"), platform)));
    person.Answers<PresetPicker>([](PresetPicker& picker) {
        EXPECT_EQ(Selected(picker), "Polar, every 10 degrees") << "of the kind of the window";
        EXPECT_LE(picker.height(), picker.screen()->availableSize().height() * 2 / 3);
        auto& list = Child<QListWidget>(picker, "PresetPickerList");
        Press(picker, Qt::Key_End);
        EXPECT_EQ(Selected(picker), "Mine");
        Press(picker, Qt::Key_Up);
        EXPECT_NE(Selected(picker), "Mine") << "across the heading";
        Press(picker, Qt::Key_Home);
        EXPECT_EQ(Selected(picker), "Squares 5 mm");
        EXPECT_EQ(Group(picker), "Squares");
        const int columns = list.viewport()->width() / list.visualItemRect(list.currentItem()).width();
        Press(picker, Qt::Key_Down);
        EXPECT_EQ(list.currentRow(), 1 + columns);
        Write(picker, "hexagons rainbow");
        EXPECT_EQ(list.item(0)->text(), QStringLiteral("Nothing found"));
        Press(picker, Qt::Key_Return);
        Press(picker, Qt::Key_Escape);
        ASSERT_TRUE(picker.isVisible()) << "nothing to choose, and Escape has cleared the search";
        Write(picker, "hexagons 5");
        EXPECT_EQ(Group(picker), "Hexagons and Triangles");
        Press(picker, Qt::Key_Return);
    });
    Click(Child(polar, "ToolPresets"), {}, {8, 8});
    EXPECT_EQ(Shown(Window("hexagon"), {"EditSize", "PopupUnits"}), "0.288675 cm");
    person.Answers<PresetPicker>([](PresetPicker& picker) {
        auto& list = Child<QListWidget>(picker, "PresetPickerList");
        Press(picker, Qt::Key_End);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.currentItem()).center());
    });
    Click(Child(Window("gallery"), "GalleryChoosePreset"));
    EXPECT_EQ(Shown(Window("grid"), "EditVertSpacing"), "0.1");
    person.Answers<PresetPicker>([](PresetPicker& picker) { Press(picker, Qt::Key_Escape); });
    Item(Window("grid"), "PresetChoose").trigger();
}

TEST_F(PresetPickerTest, PicturesShowAPartWithInkAndTheirTrueWeights)
{
    desktop::PresetPictures pictures;
    const auto darkness = [](const QImage& image) {
        double sum = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                sum += 255 - qGray(image.pixel(x, y));
            }
        }
        return sum / image.width() / image.height();
    };
    std::map<std::string, double> inks;
    for (const PaperHit& preset : FindPresets("", FolderItem(), true)) {
        QImage image;
        EXPECT_TRUE(QTest::qWaitFor([&] { return !(image = pictures.PictureOf(preset, 2.0)).isNull(); }));
        ASSERT_EQ(image.size(), QSize(2, 2) * desktop::PresetPictures::side);
        inks[std::string(preset.preset->id)] = darkness(image);
        EXPECT_GT(darkness(image), 0.3) << preset.title << ": the ink of dots of 1/4 inch is 0.47";
        EXPECT_LT(darkness(image), 80.0) << preset.title;
    }
    EXPECT_GT(inks["squares-2mm"], inks["squares-5mm"]);
    EXPECT_GT(inks["ruled-bold-15mm"], inks["ruled-8mm"]);
}

TEST_F(PresetPickerTest, NewFormsAreMetricOnRequest)
{
    const auto paper = [&](std::string_view kind) {
        return Shown(OpenPaper(kind), {"PopupPaperSize", "PopupUnits", "EditTopMargin"});
    };
    EXPECT_EQ(paper("dots"), "Letter inches 0.5") << "only if it is wanted";
    ClickBox(Child<QCheckBox>(Window("gallery"), "MetricForms"));
    EXPECT_EQ(paper("dots"), "Letter inches 0.5") << "it is open already";
    EXPECT_EQ(paper("grid"), "A4 cm 1.27");
    EXPECT_FALSE(CanChoose(Window("grid"), "EditUndo"));
    ChooseItem(Window("gallery"), "WindowGraphPaper");
    EXPECT_EQ(Shown(Window("graph"), {"PopupPaperSize", "PopupUnits"}), "A4 cm");
    const FolderItem file(folder / "own.setx");
    EXPECT_FALSE(MakeWindow(*FindPaperKind("grid"), platform)->SaveSettings(file));
    program->OpenSettings({ToQt(file.Path().string())});
    EXPECT_EQ(Shown(Window("grid"), {"PopupPaperSize", "PopupUnits"}), "Letter inches");
    Window("graph").close();
    End();
    Start();
    EXPECT_EQ(Window("gallery").findChild<QCheckBox*>("MetricForms"), nullptr) << "offered once";
    EXPECT_EQ(paper("brick"), "A4 cm 1.27");
    person.Answers<QDialog>([](QDialog& dialog) {
        auto& box = Child<QCheckBox>(dialog, "MetricForms");
        EXPECT_TRUE(box.isChecked());
        ClickBox(box);
        Click(Child(dialog, "PushButton1"));
    });
    ChooseItem(Window("gallery"), "EditPreferences");
    EXPECT_EQ(paper("lined"), "Letter inches 0.5");
}

TEST_F(PresetPickerTest, NothingOfTheGalleryIsClippedWithALargeFont)
{
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSizeF(usual.pointSizeF() * 1.7);
    QApplication::setFont(large);
    End();
    Start();
    const QWidget& gallery = Window("gallery");
    const QWidget& content = *Child(gallery, "StaticText1").parentWidget();
    for (const QWidget* const widget : content.findChildren<QWidget*>()) {
        const bool hasText = qobject_cast<const QLabel*>(widget) || qobject_cast<const QPushButton*>(widget) ||
                             qobject_cast<const QCheckBox*>(widget) || qobject_cast<const QLineEdit*>(widget);
        if (hasText && widget->isVisible()) {
            const QString text = widget->property("text").toString();
            const QSize needed =
                qobject_cast<const QLineEdit*>(widget) ? widget->minimumSizeHint() : widget->sizeHint();
            EXPECT_GE(widget->width(), needed.width()) << text.toStdString();
            EXPECT_GE(widget->height(), needed.height()) << text.toStdString();
            const QRect place(widget->mapTo(&content, QPoint()), widget->size());
            EXPECT_TRUE(content.rect().contains(place)) << text.toStdString();
        }
    }
    QApplication::setFont(usual);
}

}  // namespace
}  // namespace linealis::test
