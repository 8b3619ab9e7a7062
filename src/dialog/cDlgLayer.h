#pragma once
// The layer dialog: menus, toolbar, search field and the layer list of one run, over the
// host's main window. The work of the commands is the session's; this class shows it.
#include <QDialog>
#include <map>
#include <vector>

#include "dialog/LayerCommands.h"
#include "dialog/LayerDialogSession.h"

class QAction;
class QLineEdit;
class QMenu;
class QTableView;
class QToolButton;
class QVBoxLayout;

namespace ardo {

class cListControl;
class cCellEdit;
class cWndLayerTip;

// What the caller gives a run and what it gets back.
struct LayerDialogCall {
    int mode = layermode::kEditor;
    std::string objectName;
    std::string objectType;
    std::string defaultKey;
};

class cDlgLayer : public QDialog {
public:
    cDlgLayer(LayerDialogSession& session, const LayerDialogCall& call, QWidget* parent);
    ~cDlgLayer() override;

    // The entry of the selected row, or none.
    LayerEntry* chosenEntry() const;
    std::vector<LayerEntry*> selectedEntries() const;

    QAction* action(LayerCommand command) const { return actions_.at(command); }
    cListControl& model() { return *model_; }
    QTableView& table() { return *table_; }
    QLineEdit& searchField() { return *search_; }
    QToolButton& filterToggle() { return *filter_; }

    // Runs a command as its menu item does.
    void run(LayerCommand command);
    // Refills the list for the session's view and priority.
    void refill();
    // Starts the in-place edit of the key or name cell of the selected row; false when the
    // row or column does not allow it.
    bool editCell(int column);
    cCellEdit* cellEditor() const { return cellEdit_; }
    // The tip of a row: where its layer is defined.
    void showLayerTip(int row);
    cWndLayerTip* layerTip() const { return tip_; }
    // Greys or enables every command for the current mode, view and selection.
    void updateCommands();

    void done(int result) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void buildMenus();
    void buildToolBar(QVBoxLayout* layout);
    void restoreGeometry();
    void storeGeometry();
    void search(const QString& text);
    void commitCellEdit();
    void updateLayerTip();
    void showContextMenu(const QPoint& at);
    void switchView(int view);
    void configure();
    void chooseColour();
    void chooseLinetype();
    void deleteSelected();
    void openFile();
    bool saveFile(bool askPath);
    // Key and name of the chosen row, to find it again after the entries were read anew.
    struct ChosenRow {
        std::string key;
        std::string name;
    };
    ChosenRow chosenRow() const;
    void refillAfterReload(const ChosenRow& chosen);
    std::string askSavePath();

    LayerDialogSession& session_;
    LayerDialogCall call_;
    cListControl* model_ = nullptr;
    QTableView* table_ = nullptr;
    QLineEdit* search_ = nullptr;
    QToolButton* filter_ = nullptr;
    cCellEdit* cellEdit_ = nullptr;
    LayerEntry* editedEntry_ = nullptr;
    int editedColumn_ = -1;
    std::map<LayerCommand, QAction*> actions_;
    QMenu* layerMenu_ = nullptr;
    cWndLayerTip* tip_ = nullptr;
    int hoverRow_ = -1;
    int timer_ = 0;
    bool closing_ = false;
};

}  // namespace ardo
