#include "LoadSupport.h"

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

}  // namespace
}  // namespace linealis::test
