#include "cadhost/gui/AutoSave.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStandardPaths>
#include <QTextStream>
#include <csignal>
#include <cerrno>
#include <unistd.h>

#include "cadhost/app/Document.h"

namespace cadhost::gui {

namespace {

// Recovery files are named "<process id>-<serial>.dxf"; beside each, "<same>.origin" holds
// whether the drawing was titled and its path, one a line.
const char* const kOrigin = ".origin";

QString originOf(const QString& file) { return file + kOrigin; }

bool running(qint64 pid) { return pid == ::getpid() || ::kill(static_cast<pid_t>(pid), 0) == 0 || errno == EPERM; }

bool writeFile(const QString& path, const QByteArray& bytes) {
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

}  // namespace

AutoSave::AutoSave(QString folder) : folder_(std::move(folder)) {}

AutoSave::~AutoSave() {
    // A session that ends normally leaves nothing to recover.
    for (const auto& [document, written] : written_) {
        QFile::remove(written.file);
        QFile::remove(originOf(written.file));
    }
}

QString AutoSave::defaultFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/ardo-cad/recovery";
}

std::string AutoSave::saveChanged(const std::vector<Document*>& documents) {
    std::string failed;
    for (Document* document : documents) {
        Drawing& drawing = document->drawing();
        const std::uint64_t changes = drawing.document().changeCount();
        auto it = written_.find(document);
        if (!drawing.hasUnsavedChanges() || (it != written_.end() && it->second.changes == changes)) continue;
        if (!QDir().mkpath(folder_)) return "Cannot make the folder \"" + folder_.toStdString() + "\" for recovery files.";
        const QString file = it != written_.end()
                                 ? it->second.file
                                 : QString("%1/%2-%3.dxf").arg(folder_).arg(::getpid()).arg(++serial_);
        const QByteArray origin = QByteArray(document->titled() ? "1\n" : "0\n") + QByteArray::fromStdString(document->path()) + "\n";
        if (!writeFile(originOf(file), origin) || !writeFile(file, QByteArray::fromStdString(drawing.toDxf()))) {
            failed = "Cannot write the recovery file \"" + file.toStdString() + "\" of " + document->name() + ".";
            continue;
        }
        written_[document] = Written{file, changes};
    }
    return failed;
}

void AutoSave::forget(const Document& document) {
    const auto it = written_.find(&document);
    if (it == written_.end()) return;
    QFile::remove(it->second.file);
    QFile::remove(originOf(it->second.file));
    written_.erase(it);
}

std::vector<AutoSave::LeftBehind> AutoSave::leftBehind() const {
    std::vector<LeftBehind> found;
    const QDir dir(folder_);
    for (const QString& name : dir.entryList({"*.dxf"}, QDir::Files, QDir::Name)) {
        bool isNumber = false;
        const qint64 pid = name.section('-', 0, 0).toLongLong(&isNumber);
        if (!isNumber || running(pid)) continue;
        const QString file = dir.filePath(name);
        QFile origin(originOf(file));
        if (!origin.open(QIODevice::ReadOnly)) continue;
        QTextStream in(&origin);
        const QString titled = in.readLine();
        found.push_back(LeftBehind{file, in.readLine().toStdString(), titled == "1"});
    }
    return found;
}

void AutoSave::discard(const LeftBehind& drawing) {
    QFile::remove(drawing.file);
    QFile::remove(originOf(drawing.file));
}

}  // namespace cadhost::gui
