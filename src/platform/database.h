#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

/// A data source of this machine as ODBC lists it.
struct DataSource {
    std::string name;
    std::string description;
};

/// All data sources, in the order in which ODBC gives them; none where there is no ODBC.
std::vector<DataSource> ListDataSources();

/// A connection to a data source.
class CDatabase {
public:
    CDatabase();
    ~CDatabase();
    CDatabase(const CDatabase&) = delete;
    CDatabase& operator=(const CDatabase&) = delete;

    /// Connects without asking the operator for anything. False if that fails.
    bool OpenEx(std::string_view connection);
    /// False if the statement fails.
    bool ExecuteSQL(std::string_view statement);
    void Close();
    bool IsOpen() const;

private:
    struct Handles;
    std::unique_ptr<Handles> handles;
};

}  // namespace quillon
