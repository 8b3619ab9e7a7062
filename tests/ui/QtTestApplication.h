#pragma once
// The QApplication of the window tests, made once before the first test, and the folder
// their grabs are saved to for a person to look at.
#include <QApplication>
#include <QDir>
#include <QWidget>
#include <string>

namespace ardo::test {

inline QString saveImage(const QImage& image, const char* name) {
    QDir().mkpath(ARDO_GRAB_DIR);
    const QString path = QString(ARDO_GRAB_DIR) + "/" + name + ".png";
    image.save(path);
    return path;
}

inline QString saveGrab(QWidget& widget, const char* name) { return saveImage(widget.grab().toImage(), name); }

}  // namespace ardo::test
