#pragma once

#include <QSettings>
#include <filesystem>

#include "platform/platform.h"

namespace quillon {

/// The profile in a text file of its own, in sections. A value is in the file at the latest when the program goes.
class QtProfile : public Profile {
public:
    /// The file and its folder are made where they are missing.
    explicit QtProfile(const std::filesystem::path& file);

    int GetInt(std::string_view section, std::string_view key, int missing) const override;
    void SetInt(std::string_view section, std::string_view key, int value) override;
    std::string GetText(std::string_view section, std::string_view key, std::string_view missing) const override;
    void SetText(std::string_view section, std::string_view key, std::string_view value) override;

    /// For what the host itself keeps, such as the places of its windows.
    QSettings& Settings() { return settings; }

private:
    /// The file holds the hash of the password: it is this user's alone from its first byte on.
    void KeepPrivate() const;

    QSettings settings;
};

}  // namespace quillon
