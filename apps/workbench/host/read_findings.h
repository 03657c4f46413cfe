#pragma once

#include <string>
#include <vector>

#include "host/job_files.h"

namespace quillon {

/// One thing that a reader found in a file of a job.
struct ReadFinding {
    std::size_t line = 0;  ///< from 1; 0 for what is about the file as a whole
    std::string reason;
    friend bool operator==(const ReadFinding&, const ReadFinding&) = default;
};

/// All that was found in one file; never without a finding.
struct FileFindings {
    JobFile file;
    std::string summary;  ///< "3 of 120 lines passed over, 1 taken in part"
    std::vector<ReadFinding> findings;
    friend bool operator==(const FileFindings&, const FileFindings&) = default;
};

/// The files of a job in which something was found, in the order of kinds and files, each with what was found by lines.
std::vector<FileFindings> FindingsOf(const JobRecord& job);

/// For the clipboard: "C:\Jobs\Wrecks.csv, line 12: no northing".
std::string FindingText(const JobFile& file, const ReadFinding& finding);

}  // namespace quillon
