#include "platform/database.h"

#include <sql.h>
#include <sqlext.h>

#include <array>

namespace quillon {
namespace {

bool Succeeded(SQLRETURN result) {
    return result == SQL_SUCCESS || result == SQL_SUCCESS_WITH_INFO;
}

/// An environment of ODBC 3; null where there is none.
class Environment {
public:
    Environment() {
        if (!Succeeded(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &handle))) handle = SQL_NULL_HENV;
        // The call takes the number in place of a pointer.
        if (handle) SQLSetEnvAttr(handle, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    }
    ~Environment() {
        if (handle) SQLFreeHandle(SQL_HANDLE_ENV, handle);
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

    SQLHENV Get() const { return handle; }

private:
    SQLHENV handle = SQL_NULL_HENV;
};

/// The calls take texts that they don't change by pointers to plain characters.
SQLCHAR* Characters(std::string& text) {
    return reinterpret_cast<SQLCHAR*>(text.data());
}

std::string TextOf(const std::array<SQLCHAR, 256>& buffer) {
    return reinterpret_cast<const char*>(buffer.data());
}

}  // namespace

std::vector<DataSource> ListDataSources() {
    std::vector<DataSource> sources;
    const Environment environment;
    if (!environment.Get()) return sources;
    std::array<SQLCHAR, 256> name{}, description{};
    SQLSMALLINT nameLength = 0, descriptionLength = 0;
    SQLUSMALLINT direction = SQL_FETCH_FIRST;
    while (Succeeded(SQLDataSources(environment.Get(), direction, name.data(), 255, &nameLength, description.data(),
                                    255, &descriptionLength))) {
        sources.push_back({TextOf(name), TextOf(description)});
        direction = SQL_FETCH_NEXT;
    }
    return sources;
}

struct CDatabase::Handles {
    Environment environment;
    SQLHDBC connection = SQL_NULL_HDBC;
    bool connected = false;
};

CDatabase::CDatabase() = default;

CDatabase::~CDatabase() {
    Close();
}

bool CDatabase::IsOpen() const {
    return handles != nullptr;
}

bool CDatabase::OpenEx(std::string_view text) {
    Close();
    handles = std::make_unique<Handles>();
    std::string connection(text);
    const bool made = handles->environment.Get() &&
                      Succeeded(SQLAllocHandle(SQL_HANDLE_DBC, handles->environment.Get(), &handles->connection));
    handles->connected = made && Succeeded(SQLDriverConnect(handles->connection, nullptr, Characters(connection),
                                                            static_cast<SQLSMALLINT>(connection.size()), nullptr, 0,
                                                            nullptr, SQL_DRIVER_NOPROMPT));
    if (!handles->connected) Close();
    return IsOpen();
}

bool CDatabase::ExecuteSQL(std::string_view text) {
    if (!IsOpen()) return false;
    SQLHSTMT handle = SQL_NULL_HSTMT;
    if (!Succeeded(SQLAllocHandle(SQL_HANDLE_STMT, handles->connection, &handle))) return false;
    std::string statement(text);
    const SQLRETURN result = SQLExecDirect(handle, Characters(statement), static_cast<SQLINTEGER>(statement.size()));
    SQLFreeHandle(SQL_HANDLE_STMT, handle);
    return Succeeded(result) || result == SQL_NO_DATA;
}

void CDatabase::Close() {
    if (!handles) return;
    if (handles->connected) SQLDisconnect(handles->connection);
    if (handles->connection) SQLFreeHandle(SQL_HANDLE_DBC, handles->connection);
    handles.reset();
}

}  // namespace quillon
