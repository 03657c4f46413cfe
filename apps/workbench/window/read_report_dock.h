#pragma once

#include <QDockWidget>
#include <functional>
#include <vector>

#include "host/read_findings.h"

class QTreeWidget;
class QTreeWidgetItem;

namespace quillon {

/// What the readers found in the files of a job: each file, below it the lines with their reasons. A double click,
/// Return or Ctrl+C copies a line to the clipboard.
class ReadReportDock : public QDockWidget {
public:
    explicit ReadReportDock(QWidget* parent);

    /// Filled anew only if something is another; folded files stay folded.
    void SetFindings(std::vector<FileFindings> newFindings);
    /// Brings a file into view, unfolded; false if nothing was found in it.
    bool ShowFile(const JobFile& file);

    std::function<void(const QString& text)> onCopied;

private:
    void Copy();
    QString TextOf(QTreeWidgetItem& item) const;

    std::vector<FileFindings> findings;
    QTreeWidget* list;
};

}  // namespace quillon
