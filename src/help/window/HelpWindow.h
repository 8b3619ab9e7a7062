#pragma once
// The help window: a compiled help file's page in a text browser, with its links and
// images, back and forward, the start page and the file's index beside it.
#include <QTextBrowser>
#include <QWidget>
#include <memory>
#include <string>

#include "help/ChmFile.h"

class QListWidget;
class QAction;

namespace ardo {

// Pages and images are read from the help file; other addresses (web links) are left to
// the desktop.
class ChmBrowser : public QTextBrowser {
public:
    explicit ChmBrowser(QWidget* parent) : QTextBrowser(parent) {}
    void setFile(const ChmFile* file) { file_ = file; }
    QVariant loadResource(int type, const QUrl& name) override;

private:
    const ChmFile* file_ = nullptr;
};

class HelpWindow : public QWidget {
public:
    explicit HelpWindow(QWidget* parent);

    // Opens the help file (unless it is open already) and shows the topic ("/page.htm";
    // empty: the start page). False when the file or the topic is not there.
    bool showTopic(const std::string& helpFile, const std::string& topic);

    ChmBrowser* browser() const { return browser_; }
    QListWidget* index() const { return index_; }
    const std::string& helpFile() const { return path_; }

private:
    void fillIndex();
    std::string startPage() const;
    void placeBesideOwner();

    std::unique_ptr<ChmFile> file_;
    std::string path_;
    ChmBrowser* browser_;
    QListWidget* index_;
};

// The viewer that showHelp uses: one help window, parented to the modal dialog that asked
// or else to the host's main window.
// Without a display it prints where the topic is instead.
bool showHelpAddress(const std::string& address);

// The help window now shown, for tests; none before the first help.
HelpWindow* currentHelpWindow();

}  // namespace ardo
