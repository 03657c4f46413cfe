#include "window/picture.h"

#include <QSaveFile>

namespace quillon {

bool SavePicture(const QImage& picture, const QString& file, QString& fault) {
    QSaveFile out(file);
    if (!out.open(QIODevice::WriteOnly)) {
        fault = out.errorString();
        return false;
    }
    if (!picture.save(&out, "PNG")) {
        fault = "The picture could not be written.";
        return false;
    }
    if (!out.commit()) {
        fault = out.errorString();
        return false;
    }
    return true;
}

}  // namespace quillon
