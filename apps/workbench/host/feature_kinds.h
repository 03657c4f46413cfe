#pragma once

#include <span>
#include <string_view>

#include "features/job_features.h"
#include "frame/messages.h"
#include "platform/window.h"

namespace quillon {

/// What the workbench must know of one kind of feature that lives in a file list: its list, and the panes that edit it.
struct FeatureKind {
    FEATURE_TYPES type;
    std::string_view name;  ///< "Sail Line"
    CFileListBase& (*list)(JobFeatures& job);
    /// The flags that lie beside the data file; null where the kind keeps none there.
    CFeatureCommon* (*common)(JobFeatures& job, int index);
    /// InvalidArgument for what isn't there.
    tagXY (*point)(const JobFeatures& job, int index, int point);
    /// By their ids; the first is where the kind is shown.
    std::span<const UINT> panes;
};

/// Every kind of the job, in the order of the menu.
std::span<const FeatureKind> FeatureKinds();

/// Null for a kind that the workbench has none of.
const FeatureKind* FindFeatureKind(FEATURE_TYPES type);
const FeatureKind* FindFeatureKindOfPane(UINT paneId);

}  // namespace quillon
