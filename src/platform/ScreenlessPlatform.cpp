#include "platform/ScreenlessPlatform.h"

namespace linealis {

MessageDialog::Button ScreenlessPlatform::ShowModal(const MessageDialog& dialog)
{
    dialogs.push_back(dialog);
    return buttonAnswer;
}

bool ScreenlessPlatform::Launch(const FolderItem& file)
{
    launched.push_back(file);
    return launchSucceeds;
}

void ScreenlessPlatform::FetchInBackground(const std::string& url,
                                           std::function<void(const std::string& page)> onReply)
{
    fetches.push_back({url, std::move(onReply)});
}

void ScreenlessPlatform::ShowFileError(const FolderItem& file, const Message& text, const Message& reason)
{
    fileErrors.push_back({file, text.English(), reason.English()});
}

FolderItem ScreenlessPlatform::GetSaveFolderItem(const FileType& type, const std::string& suggestedName)
{
    saveQuestions.push_back({type, suggestedName});
    return saveAnswer;
}

bool ScreenlessPlatform::SelectColor(Color& color, const Message& /*title*/)
{
    if (colorAnswer) {
        color = *colorAnswer;
    }
    return colorAnswer.has_value();
}

void ScreenlessPlatform::Yield()
{
    if (onYield) {
        onYield();
    }
}

}  // namespace linealis
