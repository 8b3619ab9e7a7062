#include "cadhost/gui/DrawingReading.h"

#include <QEventLoop>
#include <QFileInfo>
#include <QProgressDialog>
#include <QTimer>
#include <atomic>
#include <memory>
#include <thread>

namespace cadhost::gui {

namespace {

// A reading shows its dialog when it takes longer than this; most drawings open before.
int quietMilliseconds = 300;
constexpr int kPollMilliseconds = 15;

// What the reading thread hands back; it outlives the window's wait when cancelled.
struct Shared {
    std::atomic<bool> done{false};
    ardo::Result<RecoveredDrawing> drawing = ardo::Error{""};
};

ardo::Result<RecoveredDrawing> read(const std::string& path, ReadMode mode) {
    if (mode == ReadMode::Recover) return Drawing::recover(path);
    auto opened = Drawing::open(path);
    if (!opened) return ardo::Error{opened.error()};
    return RecoveredDrawing{std::move(opened).value(), {}};
}

}  // namespace

void setProgressDelay(int milliseconds) { quietMilliseconds = milliseconds; }

Reading readDrawing(const std::string& path, ReadMode mode, QWidget* parent) {
    auto shared = std::make_shared<Shared>();
    std::thread([shared, path, mode] {
        shared->drawing = read(path, mode);
        shared->done = true;
    }).detach();

    const QString name = QFileInfo(QString::fromStdString(path)).fileName();
    QProgressDialog progress(mode == ReadMode::Recover ? QObject::tr("Recovering %1...").arg(name)
                                                       : QObject::tr("Opening %1...").arg(name),
                             QObject::tr("Cancel"), 0, 0, parent);
    progress.setObjectName("readingProgress");
    progress.setWindowTitle(QObject::tr("Open Drawing"));
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(quietMilliseconds);
    progress.setAutoClose(false);
    progress.setAutoReset(false);
    QEventLoop loop;
    QTimer poll;
    bool cancelled = false;
    QObject::connect(&poll, &QTimer::timeout, &loop, [&] {
        cancelled = progress.wasCanceled();
        if (shared->done || cancelled) loop.quit();
        // A busy bar: the dialog appears after the quiet time and keeps moving.
        progress.setValue(0);
    });
    poll.start(kPollMilliseconds);
    loop.exec();
    if (cancelled) return Reading{true, ardo::Error{""}};
    return Reading{false, std::move(shared->drawing)};
}

}  // namespace cadhost::gui
