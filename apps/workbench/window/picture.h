#pragma once

#include <QImage>
#include <QString>

namespace quillon {

/// Writes a PNG whole or not at all. False, and why in words, if it can't be written.
bool SavePicture(const QImage& picture, const QString& file, QString& fault);

}  // namespace quillon
