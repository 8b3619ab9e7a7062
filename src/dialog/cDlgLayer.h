#pragma once
// The layer dialog: menus, toolbar, search field and the layer list of one run, over the
// host's main window. The work of the commands is the session's; this class shows it.
#include <QDialog>
#include <map>
#include <memory>
#include <vector>

#include "dialog/LayerCommands.h"
#include "dialog/LayerDialogSession.h"
#include "ui/cIconMenu.h"

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
    std::string objectDirectory;
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
    // Runs the dialog modally; a pick leaves the loop while the user picks in the drawing.
    int exec() override;
    // Lets the user pick an entity in the drawing (the dialog hidden) and offers its layer
    // as the base of a new entry.
    void pickLayer();
    // Opens the properties dialog for a new entry; on OK it joins the list and is selected.
    void newEntry(int propsMode, const LayerEntry& proposal, const LayerEntry* base);
    // Opens the properties dialog of the chosen entry: to change an entry of the central
    // file, to show a layer only in the drawing.
    void changeEntry();
    // The context menu of the list, filled and enabled as it would be shown.
    std::unique_ptr<cIconMenu> contextMenu();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void buildMenus();
    void buildToolBar(QVBoxLayout* layout);
    void restoreGeometry();
    // Wide enough for every column and the toolbar, high enough for a page of rows.
    QSize fittingSize() const;
    void storeGeometry();
    void search(const QString& text);
    void commitCellEdit();
    void updateLayerTip();
    void showContextMenu(const QPoint& at);
    void switchView(int view);
    void configure();
    void newBasedOnChosen();
    void offerPickedLayer(const std::string& layer);
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
    ChosenRow choiceBeforeSave_;
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
    bool picking_ = false;
    // The images of the context menu, enabled and greyed.
    IconList menuIcons_;
    IconList menuIconsGreyed_;
};

}  // namespace ardo
