// A module of the suite that shows the keys of the central layer control file in a docking
// pane of the main window; a double-click creates that key's layer in the drawing through
// ardo's kemb_newlayer. It uses ardo only as other modules do: the pane manager from the
// exported Kemb_GetAcadDockingPaneManager, the layer work through ardo's LISP functions.
//
//   (arxload "module/layerkeys/layerkeys.arx")
//   KEMB_LAYERKEYS             command: shows (or refreshes) the pane with the central file's keys
//   (kemb_layerkeypane file)   the same for a given central file; the number of keys, or nil
#include <dlfcn.h>

#include <QDir>
#include <QDockWidget>
#include <QFileInfo>
#include <QListWidget>
#include <string>

#include "base/CodePage.h"
#include "base/TextFile.h"
#include "boundary/AppMessages.h"
#include "boundary/Host.h"
#include "panes/DockingPaneManager.h"

namespace {

ardo::Host* host = nullptr;

enum Code { kShowCommand = 0, kPane = 1 };
constexpr auto kPaneId = "ardo.layerkeys";
constexpr auto kTitle = "Layerschlüssel";

// ardo.arx lies two folders up, in the program folder; it must be loaded already.
ardo::DockingPaneManager* paneManager() {
    Dl_info self{};
    if (!dladdr(reinterpret_cast<void*>(&paneManager), &self) || !self.dli_fname) return nullptr;
    const std::string ardo = QFileInfo(self.dli_fname).absoluteDir().filePath("../../ardo.arx").toStdString();
    void* module = dlopen(ardo.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (!module) return nullptr;
    auto get = reinterpret_cast<KembGetAcadDockingPaneManager>(dlsym(module, "Kemb_GetAcadDockingPaneManager"));
    ardo::DockingPaneManager* manager = get ? get() : nullptr;
    dlclose(module);  // only the reference this lookup took
    return manager;
}

// "KEY=Name,colour,..." lines of the [LAYER] section, as (key, name) for the list.
QList<QPair<QString, QString>> layerKeys(const std::string& file) {
    QList<QPair<QString, QString>> keys;
    const std::optional<std::string> bytes = ardo::readFileBytes(file);
    if (!bytes) return keys;
    const QStringList lines = QString::fromStdString(ardo::decodeFileText(*bytes)).split('\n');
    bool inLayers = false;
    for (QString line : lines) {
        line = line.trimmed();
        if (line.startsWith('[')) {
            inLayers = line.compare("[LAYER]", Qt::CaseInsensitive) == 0;
            continue;
        }
        const qsizetype equals = line.indexOf('=');
        if (!inLayers || line.startsWith(';') || equals <= 0) continue;
        keys.append({line.left(equals).trimmed(), line.mid(equals + 1).section(',', 0, 0)});
    }
    return keys;
}

QListWidget* keyList(ardo::DockingPaneManager& manager) {
    if (QDockWidget* pane = manager.pane(kPaneId)) return qobject_cast<QListWidget*>(pane->widget());
    // Without a window there is nothing to show: the manager tells the user why.
    if (!manager.hasMainWindow()) {
        manager.addPane(kPaneId, kTitle, nullptr, Qt::LeftDockWidgetArea);
        return nullptr;
    }
    auto* list = new QListWidget;
    list->setObjectName("layerKeys");
    QObject::connect(list, &QListWidget::itemDoubleClicked, [](QListWidgetItem* item) {
        const QString key = item->data(Qt::UserRole).toString();
        host->queueExpr("(kemb_newlayer \"LAYERKEYS\" \"" + key.toStdString() + "\")\n");
    });
    // A refused pane takes its content with it.
    if (!manager.addPane(kPaneId, kTitle, list, Qt::LeftDockWidgetArea)) return nullptr;
    return list;
}

// (kemb_layerkeypane file)
void showPane() {
    host->retNil();
    const ardo::ResBufChain& args = host->getArgs();
    if (args.size() != 1 || args[0].restype != ardo::RTSTR) {
        host->print("kemb_layerkeypane: the central layer file's path is expected\n");
        return;
    }
    ardo::DockingPaneManager* manager = paneManager();
    if (!manager) {
        host->print("kemb_layerkeypane: ardo.arx is not loaded; load it first\n");
        return;
    }
    QListWidget* list = keyList(*manager);
    if (!list) return;
    list->clear();
    const auto keys = layerKeys(args[0].text);
    for (const auto& [key, name] : keys) {
        auto* item = new QListWidgetItem(key + "  " + name, list);
        item->setData(Qt::UserRole, key);
    }
    manager->pane(kPaneId)->show();
    host->retInt(static_cast<int>(keys.size()));
}

int showCommand() {
    host->retVoid();
    host->queueExpr("(kemb_layerkeypane (Kemb_GetLayerFile \"KEMB_LAYERKEYS\"))\n");
    return ardo::RSRSLT;
}

void forgetPane() {
    if (ardo::DockingPaneManager* manager = paneManager()) manager->removePane(kPaneId);
}

}  // namespace

extern "C" __attribute__((visibility("default"))) int acrxEntryPoint(int message, void* appId) {
    host = static_cast<ardo::Host*>(appId);
    switch (message) {
    case ardo::kInitAppMsg:
        host->defun("c:kemb_layerkeys", kShowCommand);
        host->regFunc(showCommand, kShowCommand);
        host->defun("kemb_layerkeypane", kPane);
        break;
    case ardo::kInvkSubrMsg:
        if (host->getFunCode() == kPane) showPane();
        break;
    case ardo::kUnloadAppMsg:
    case ardo::kQuitMsg:
        // The pane's code goes with this module: the pane must go first.
        forgetPane();
        host->undef("c:kemb_layerkeys", kShowCommand);
        host->undef("kemb_layerkeypane", kPane);
        break;
    default:
        break;
    }
    return ardo::kRetOK;
}
