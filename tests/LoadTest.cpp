#include "LoadSupport.h"
#include "exchange/PngPage.h"

namespace linealis::test {
namespace {

/// Pages of all kinds one after the other, each from a settings file, over the same files.
TEST(Load, ManyPagesInOneProcess)
{
    const TemporaryFolder folder;
    const auto fileOf = [&](const PaperKind& kind, const std::string& extension) {
        return FolderItem(folder / (std::string(kind.name) + "." + extension));
    };
    CheckLoad([&](int page) {
        const PaperKind& kind = PaperKinds()[static_cast<std::size_t>(page) % PaperKinds().size()];
        const FolderItem settings = fileOf(kind, std::string(kind.settingsType.extension));
        ScreenlessPlatform platform;
        platform.shiftKey = true;
        platform.saveAnswer = fileOf(kind, "pdf");
        const auto window = MakeWindow(kind, platform);
        if (settings.Exists()) {
            window->OpenDocument(settings);
        }
        window->PushButtonGenerate_Action();
        ASSERT_EQ(window->LastPage(), PageEnd::Written);
        ASSERT_FALSE(window->SaveSettings(settings));
    });
    EXPECT_EQ(folder.Names().size(), 2 * PaperKinds().size());
}

/// Each with a font of its own.
TEST(Load, ManyPicturesInOneProcess)
{
    CheckLoad([](int page) {
        const std::string content =
            "BT\r/F" + std::to_string(page % 15) + " 20 Tf\r5 5 Td\r(" + std::to_string(page) + ") Tj\rET\r";
        std::string png;
        BinaryStream stream = BinaryStream::IntoMemory(png);
        WritePng({100, 30}, content, {}, stream);
        ASSERT_GT(png.size(), 200U);
    });
}

}  // namespace
}  // namespace linealis::test
