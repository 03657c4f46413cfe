#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/window.h"

namespace quillon {

inline constexpr std::string_view kFeatureFileFilter =
    "CSV Files (*.csv)|*.csv|Text Files (*.txt)|*.txt|Data Files (*.dat)|*.dat|All Files (*.*)|*.*||";

/// Asks for data files of a kind ("Boundary"). True if at least one was chosen; `files` then holds their paths,
/// trimmed, and is empty otherwise. Agreeing without a file shows a warning.
bool SelectFeatureFiles(CWnd& parent, std::string_view kind, std::vector<std::string>& files,
                        std::string_view filter = kFeatureFileFilter);
/// The same under a title of its own.
bool AskForFeatureFiles(CWnd& parent, std::string_view title, std::string_view filter, std::vector<std::string>& files);

}  // namespace quillon
