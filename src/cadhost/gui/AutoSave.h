#pragma once
// Automatic save: each drawing changed since it was last saved is written every SAVETIME
// minutes to a recovery file in the per-user folder, so a crash loses at most those
// minutes. A normal save or close removes the drawing's file, a normal end all of the
// session's; the files a session left behind when it died are offered at the next start.
#include <QString>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace cadhost {
class Document;
}

namespace cadhost::gui {

class AutoSave {
public:
    // `folder` is made when the first file is written.
    explicit AutoSave(QString folder = defaultFolder());
    ~AutoSave();
    AutoSave(const AutoSave&) = delete;
    AutoSave& operator=(const AutoSave&) = delete;

    // The per-user folder for recovery files.
    static QString defaultFolder();
    const QString& folder() const { return folder_; }

    // Writes the recovery file of each document changed since it was saved or last written
    // here; the message of a file that could not be written, else empty.
    std::string saveChanged(const std::vector<Document*>& documents);
    // The document was saved or closed: its recovery file goes.
    void forget(const Document& document);

    // A drawing a session left behind: the recovery file, where the drawing came from and
    // whether it was ever saved there (else the path only names it).
    struct LeftBehind {
        QString file;
        std::string original;
        bool titled = false;
    };
    // The recovery files of sessions that no longer run.
    std::vector<LeftBehind> leftBehind() const;
    // Removes a left-behind drawing's files once it was recovered or discarded.
    static void discard(const LeftBehind& drawing);

private:
    struct Written {
        QString file;
        std::uint64_t changes;
    };
    QString folder_;
    int serial_ = 0;
    std::map<const Document*, Written> written_;
};

}  // namespace cadhost::gui
