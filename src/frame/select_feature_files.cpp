#include "frame/select_feature_files.h"

#include "platform/platform.h"
#include "platform/text.h"

namespace quillon {

bool SelectFeatureFiles(CWnd& parent, std::string_view kind, std::vector<std::string>& files, std::string_view filter) {
    return AskForFeatureFiles(parent, std::string(kind) + " Files ....", filter, files);
}

bool AskForFeatureFiles(CWnd& parent, std::string_view title, std::string_view filter,
                        std::vector<std::string>& files) {
    files.clear();
    const FileQuestion question{.title = std::string(title), .filter = std::string(filter), .multiple = true};
    std::vector<std::string> chosen;
    if (!parent.GetPlatform().ChooseFiles(question, chosen)) return false;
    for (const std::string& path : chosen) {
        const std::string_view trimmed = Trim(path);
        if (!trimmed.empty()) files.emplace_back(trimmed);
    }
    if (!files.empty()) return true;
    parent.GetPlatform().WarningMessage("Requires a file name");
    return false;
}

}  // namespace quillon
