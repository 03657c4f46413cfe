#include "host/startup.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <random>
#include <string_view>

namespace quillon {
namespace {

namespace fs = std::filesystem;

std::string Environment(const char* name) {
    const char* const value = std::getenv(name);
    return value ? value : "";
}

/// Whether a server listens at a local socket. A leading NUL names the abstract kind, which has no file.
bool Answers(std::string_view socketPath) {
    sockaddr_un address{};
    if (socketPath.size() >= sizeof address.sun_path) return false;
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, socketPath.data(), socketPath.size());
    const int connection = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (connection < 0) return false;
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + socketPath.size());
    const bool answered = ::connect(connection, reinterpret_cast<const sockaddr*>(&address), length) == 0;
    ::close(connection);
    return answered;
}

/// ":0", ":0.0", "unix:0" are this machine's. Of a display elsewhere only the toolkit can tell.
bool IsX11There(const std::string& display) {
    const std::size_t colon = display.find(':');
    if (colon == std::string::npos) return false;
    const std::string host = display.substr(0, colon);
    if (!host.empty() && host != "unix") return true;
    const std::string number = display.substr(colon + 1, display.find('.', colon) - colon - 1);
    const std::string path = "/tmp/.X11-unix/X" + number;
    return Answers(path) || Answers(std::string(1, '\0') + path);
}

bool IsWaylandThere(const std::string& name) {
    if (name.empty()) return false;
    return Answers(name.front() == '/' ? name : Environment("XDG_RUNTIME_DIR") + '/' + name);
}

}  // namespace

fs::path DefaultDrives() {
    const std::string data = Environment("XDG_DATA_HOME");
    if (!data.empty() && data.front() == '/') return fs::path(data) / "quillon" / "drives";
    return fs::path(Environment("HOME")) / ".local" / "share" / "quillon" / "drives";
}

fs::path FindSampleJob(const fs::path& program) {
    std::error_code failed;
    const fs::path beside = fs::weakly_canonical(program, failed).parent_path();
    for (const fs::path& place : {beside / ".." / QUILLON_SAMPLE_BELOW_PREFIX, fs::path(QUILLON_SAMPLE_IN_SOURCE)}) {
        if (fs::is_directory(place / "c", failed)) return place.lexically_normal();
    }
    return {};
}

ScratchJob::ScratchJob(const fs::path& sample) {
    std::random_device random;
    do {
        drives = fs::temp_directory_path() / ("quillon-sample-" + std::to_string(random()));
    } while (!fs::create_directory(drives));
    fs::permissions(drives, fs::perms::owner_all);
    try {
        fs::copy(sample / "c", drives / "c", fs::copy_options::recursive);
        // An installed copy may be read-only; this one is worked on.
        for (const auto& entry : fs::recursive_directory_iterator(drives)) {
            fs::permissions(entry.path(), fs::perms::owner_read | fs::perms::owner_write, fs::perm_options::add);
        }
    } catch (...) {
        std::error_code ignored;
        fs::remove_all(drives, ignored);
        throw;
    }
}

ScratchJob::~ScratchJob() {
    std::error_code ignored;
    fs::remove_all(drives, ignored);
}

DISPLAY_KIND FindDisplay() {
    if (IsX11There(Environment("DISPLAY"))) return DISPLAY_KIND::X11;
    if (IsWaylandThere(Environment("WAYLAND_DISPLAY"))) return DISPLAY_KIND::WAYLAND;
    return DISPLAY_KIND::NONE;
}

std::string ChooseToolkitPlatform(const WorkbenchOptions& options, DISPLAY_KIND display, bool chosenByUser) {
    if (options.MakesPicture()) return options.screenshot.empty() || !chosenByUser ? "offscreen" : "";
    if (chosenByUser) return {};
    switch (display) {
        case DISPLAY_KIND::NONE:
            return "offscreen";
        case DISPLAY_KIND::X11:
            return "xcb;wayland";
        case DISPLAY_KIND::WAYLAND:
            return "wayland";
    }
    return {};
}

}  // namespace quillon
