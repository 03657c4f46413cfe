#include "toolkit/qt_profile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "toolkit/text_edge.h"

namespace quillon {
namespace {

QString KeyOf(std::string_view section, std::string_view key) {
    // The backslash of a section parts it into levels, as the settings file does with a slash.
    return ToQString(section).replace('\\', '/') + '/' + ToQString(key);
}

}  // namespace

QtProfile::QtProfile(const std::filesystem::path& file)
    : settings(QString::fromStdString(file.string()), QSettings::IniFormat) {
    KeepPrivate();
}

int QtProfile::GetInt(std::string_view section, std::string_view key, int missing) const {
    const QString name = KeyOf(section, key);
    return settings.contains(name) ? Atoi(FromQString(settings.value(name).toString())) : missing;
}

void QtProfile::SetInt(std::string_view section, std::string_view key, int value) {
    SetText(section, key, Format("%d", value));
}

std::string QtProfile::GetText(std::string_view section, std::string_view key, std::string_view missing) const {
    const QString name = KeyOf(section, key);
    return settings.contains(name) ? FromQString(settings.value(name).toString()) : std::string(missing);
}

void QtProfile::KeepPrivate() const {
    const std::filesystem::path file = settings.fileName().toStdString();
    std::error_code failed;
    std::filesystem::create_directories(file.parent_path(), failed);
    const int made = ::open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (made < 0) return;  // the settings will tell
    ::fchmod(made, S_IRUSR | S_IWUSR);
    ::close(made);
}

void QtProfile::SetText(std::string_view section, std::string_view key, std::string_view value) {
    settings.setValue(KeyOf(section, key), ToQString(value));
}

}  // namespace quillon
