#pragma once

#include <QByteArray>
#include <QString>
#include <string>
#include <string_view>

#include "platform/text.h"

namespace quillon {

// The edge at which the toolkit's Unicode meets the library's Windows-1252. A character that Windows-1252 lacks goes
// in and comes out again unharmed.

inline QString ToQString(std::string_view text) {
    return QString::fromStdString(Utf8FromText(text));
}

inline std::string FromQString(const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    return TextFromUtf8(std::string_view(utf8.constData(), static_cast<std::size_t>(utf8.size())));
}

}  // namespace quillon
