#include "dialog/cDlgLayer.h"

#include <QApplication>
#include <QCursor>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QTableView>
#include <QToolBar>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <utility>

#include "ui/UiTexts.h"
#include "base/CaseFold.h"
#include "base/Printf.h"
#include "about/ProductDialogs.h"
#include "dialog/DialogHelp.h"
#include "dialog/DialogIcons.h"
#include "dialog/cCellEdit.h"
#include "dialog/cDlgOpenLineType.h"
#include "dialog/EntryProposal.h"
#include "dialog/cDlgOptions.h"
#include "dialog/cDlgProps.h"
#include "dialog/cListControl.h"
#include "dialog/cListDelegate.h"
#include "layers/ColourCode.h"
#include "layers/LayerKeyRules.h"
#include "messages/MessageCatalog.h"
#include "module/HostBinding.h"
#include "settings/ModuleFiles.h"
#include "ui/cWndLayerTip.h"

namespace ardo {

namespace {

MsgKey titleOfMode(int mode) {
    switch (mode) {
        case layermode::kCentralSelection: return MsgKey::RsLayerDlgTiIni;
        case layermode::kObject: return MsgKey::RsLayerDlgTiObj;
        default: return MsgKey::RsLayerDlgTiEdi;
    }
}

const char* helpTopicOfMode(int mode) {
    switch (mode) {
        case layermode::kCentralSelection: return "LayerSelection";
        case layermode::kObject: return "LayerDialog";
        default: return "LayerEditor";
    }
}

// The widths of the columns from the settings record.
int& widthOfColumn(LayerDialogSettings& s, LayerColumn column) {
    switch (column) {
        case LayerColumn::Key: return s.widthKey;
        case LayerColumn::Name: return s.widthName;
        case LayerColumn::Color: return s.widthColor;
        case LayerColumn::Linetype: return s.widthLtype;
        case LayerColumn::State: return s.widthState;
        case LayerColumn::Lineweight: return s.widthWeight;
        case LayerColumn::PlotStyle: return s.widthPlotStyle;
        case LayerColumn::Plottable: return s.widthPlottable;
    }
    return s.widthKey;
}

constexpr int kTimerInterval = 200;
constexpr int kTipOffset = 24;
constexpr int kTipWidth = 260;
// The context menu opens this far below the click, so the row under it stays visible.
constexpr int kContextMenuDrop = 15;

const std::vector<LayerCommand> kFileMenu{LayerCommand::FileNew, LayerCommand::FileOpen, LayerCommand::FileSave,
                                          LayerCommand::FileSaveAs, LayerCommand::FileQuit};
// The result with which the modal loop is left to pick in the drawing.
constexpr int kPickResult = 0x7001;

const std::vector<LayerCommand> kViewMenu{LayerCommand::ViewObjects, LayerCommand::ViewObjectType,
                                          LayerCommand::ViewDrawing, LayerCommand::ViewCentral};

}  // namespace

cDlgLayer::cDlgLayer(LayerDialogSession& session, const LayerDialogCall& call, QWidget* parent)
    : QDialog(parent), session_(session), call_(call) {
    setObjectName("cDlgLayer");
    setWindowTitle(qCatalog(titleOfMode(session_.mode())));
    setSizeGripEnabled(true);

    auto* layout = new QVBoxLayout(this);
    buildMenus();
    buildToolBar(layout);

    if (session_.mode() == layermode::kObject) {
        auto* objectRow = new QHBoxLayout;
        objectRow->addWidget(new QLabel(qCatalog(MsgKey::RsLayerDlgTxObj)));
        objectRow->addWidget(new QLabel(qText(call_.objectName)), 1);
        objectRow->addWidget(new QLabel(qCatalog(MsgKey::RsLayerDlgTxTyp)));
        objectRow->addWidget(new QLabel(qText(call_.objectType)), 1);
        layout->addLayout(objectRow);
    }

    auto* searchRow = new QHBoxLayout;
    auto* searchLabel = new QLabel(qCatalog(MsgKey::RsLayerDlgTxFnd));
    search_ = new QLineEdit;
    search_->setObjectName("search");
    searchLabel->setBuddy(search_);
    filter_ = new QToolButton;
    filter_->setObjectName("filter");
    filter_->setCheckable(true);
    filter_->setIcon(dialogIcon(DialogIcon::Filter));
    searchRow->addWidget(searchLabel);
    searchRow->addWidget(search_, 1);
    searchRow->addWidget(filter_);
    layout->addLayout(searchRow);
    connect(search_, &QLineEdit::textChanged, this, [this](const QString& text) { search(text); });
    connect(filter_, &QToolButton::toggled, this, [this] { search(search_->text()); });

    model_ = new cListControl(this);
    model_->buildColumns(session_.settings().dataCols);
    model_->setPriority(session_.settings().currentPrio);
    model_->setMarkDrawingLayers(session_.settings().markLayers);
    model_->setLineweightState(readLineweightState());
    table_ = new QTableView;
    table_->setObjectName("layerList");
    table_->setModel(model_);
    table_->setItemDelegate(new cListDelegate(table_));
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setContextMenuPolicy(Qt::CustomContextMenu);
    table_->setWordWrap(false);
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().height() + 4);
    table_->horizontalHeader()->setSectionsClickable(true);
    table_->horizontalHeader()->setHighlightSections(false);
    table_->installEventFilter(this);
    table_->setProperty("lastRow", -1);
    layout->addWidget(table_, 1);
    connect(table_->horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int section) {
        model_->sortByColumn(section);
    });
    connect(table_, &QWidget::customContextMenuRequested, this, &cDlgLayer::showContextMenu);
    connect(table_, &QAbstractItemView::clicked, this, [this](const QModelIndex& index) {
        // A click on the key or name cell of the row that was already selected edits it.
        if (index.column() <= 1 && index.row() == table_->property("lastRow").toInt()) editCell(index.column());
        table_->setProperty("lastRow", index.row());
    });

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(okCancelHelpButtons(this, helpTopicOfMode(session_.mode())), 1);
    layout->addLayout(bottom);

    refill();
    const int defaultRow = call_.defaultKey.empty() ? -1 : model_->rowOfKey(call_.defaultKey);
    if (defaultRow >= 0) {
        table_->selectRow(defaultRow);
        table_->scrollTo(model_->index(defaultRow, 0), QAbstractItemView::PositionAtCenter);
    }
    connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { updateCommands(); });
    updateCommands();
    restoreGeometry();

    // A save reads the entries anew; the rows then point at them and the choice stays.
    session_.setReloaded([this] { refillAfterReload(choiceBeforeSave_); });

    timer_ = startTimer(kTimerInterval);
    if (timer_ == 0) host().print(format("\n%s\n", catalogText(MsgKey::EtNoTimerAvailable)));
}

cDlgLayer::~cDlgLayer() { session_.setReloaded(nullptr); }

void cDlgLayer::buildMenus() {
    auto* bar = new QMenuBar(this);
    layout()->setMenuBar(bar);
    const auto add = [this](QMenu* menu, LayerCommand command) {
        QAction* action = menu->addAction(qCatalog(menuTextKey(command)));
        MsgKey tip;
        if (tooltipKey(command, tip)) {
            action->setToolTip(qCatalog(tip));
            action->setStatusTip(qCatalog(tip));
        }
        connect(action, &QAction::triggered, this, [this, command] { run(command); });
        actions_[command] = action;
        return action;
    };
    QMenu* file = bar->addMenu(qCatalog(MsgKey::MnFile));
    for (LayerCommand c : kFileMenu) {
        add(file, c);
        if (c == LayerCommand::FileOpen || c == LayerCommand::FileSaveAs) file->addSeparator();
    }
    QMenu* view = bar->addMenu(qCatalog(MsgKey::MnView));
    for (LayerCommand c : kViewMenu) add(view, c)->setCheckable(true);
    layerMenu_ = bar->addMenu(qCatalog(MsgKey::MnLayr));
    for (LayerCommand c : {LayerCommand::LayerNew, LayerCommand::LayerBased, LayerCommand::LayerFromCentral,
                           LayerCommand::LayerPick, LayerCommand::LayerChange})
        add(layerMenu_, c);
    layerMenu_->addSeparator();
    add(layerMenu_, LayerCommand::LayerColor);
    add(layerMenu_, LayerCommand::LayerLinetype);
    add(layerMenu_, LayerCommand::LayerRegen);
    add(layerMenu_, LayerCommand::LayerDelete);
    QMenu* options = bar->addMenu(qCatalog(MsgKey::MnOpts));
    add(options, LayerCommand::OptsConfig);
    add(options, LayerCommand::OptsDwg)->setCheckable(true);
    add(options, LayerCommand::OptsIni)->setCheckable(true);
    QMenu* help = bar->addMenu(qCatalog(MsgKey::MnHelp));
    add(help, LayerCommand::HelpHelp);
    add(help, LayerCommand::HelpInfo);

    actions_[LayerCommand::FileSave]->setShortcut(QKeySequence::Save);
    for (LayerCommand c : {LayerCommand::FileNew, LayerCommand::FileOpen, LayerCommand::FileSave,
                           LayerCommand::FileSaveAs, LayerCommand::ViewObjects, LayerCommand::ViewObjectType,
                           LayerCommand::ViewDrawing, LayerCommand::ViewCentral, LayerCommand::LayerNew,
                           LayerCommand::LayerBased, LayerCommand::LayerFromCentral, LayerCommand::LayerPick,
                           LayerCommand::LayerChange, LayerCommand::LayerColor, LayerCommand::LayerLinetype, LayerCommand::LayerRegen, LayerCommand::LayerDelete,
                           LayerCommand::OptsConfig,
                           LayerCommand::OptsDwg, LayerCommand::OptsIni})
        actions_[c]->setIcon(dialogIcon(iconOfCommand(c)));
}

void cDlgLayer::buildToolBar(QVBoxLayout* layout) {
    auto* bar = new QToolBar;
    bar->setObjectName("toolBar");
    bar->setIconSize(QSize(16, 16));
    for (LayerCommand c : {LayerCommand::FileNew, LayerCommand::FileOpen, LayerCommand::FileSave,
                           LayerCommand::FileSaveAs})
        bar->addAction(actions_[c]);
    bar->addSeparator();
    for (LayerCommand c : kViewMenu) bar->addAction(actions_[c]);
    bar->addSeparator();
    for (LayerCommand c : {LayerCommand::LayerNew, LayerCommand::LayerBased, LayerCommand::LayerFromCentral,
                           LayerCommand::LayerPick, LayerCommand::LayerChange})
        bar->addAction(actions_[c]);
    bar->addSeparator();
    for (LayerCommand c : {LayerCommand::LayerColor, LayerCommand::LayerLinetype, LayerCommand::LayerRegen,
                           LayerCommand::LayerDelete})
        bar->addAction(actions_[c]);
    bar->addSeparator();
    bar->addAction(actions_[LayerCommand::OptsConfig]);
    bar->addAction(actions_[LayerCommand::OptsDwg]);
    bar->addAction(actions_[LayerCommand::OptsIni]);
    layout->addWidget(bar);
}

void cDlgLayer::restoreGeometry() {
    const LayerDialogSettings& s = session_.settings();
    const LayerDialogSettings defaults;
    const QScreen* screen = parentWidget() ? parentWidget()->screen() : QGuiApplication::primaryScreen();
    const int w = screen ? screen->virtualGeometry().width() : 0;
    // The first open shows every column and button whole; a size the user gave is kept.
    QRect rect(QPoint(defaults.posX, defaults.posY), fittingSize());
    if (screen) rect.setSize(rect.size().boundedTo(screen->availableGeometry().size() - QSize(defaults.posX, defaults.posY)));
    const bool stored = s.sizeX != defaults.sizeX || s.sizeY != defaults.sizeY;
    // Every test measures against the virtual screen's width, the vertical ones too.
    if (s.posX > 0 && s.posX < w - 10) rect.moveLeft(s.posX);
    if (s.posY > 0 && s.posY < w - 10) rect.moveTop(s.posY);
    if (stored && s.sizeX > 100 && s.sizeX < w) rect.setWidth(s.sizeX);
    if (stored && s.sizeY > 100 && s.sizeY < w) rect.setHeight(s.sizeY);
    setGeometry(rect);
}

QSize cDlgLayer::fittingSize() const {
    constexpr int kRowsShown = 16;
    int columns = 0;
    for (int position = 0; position < model_->columnCount(); ++position) columns += table_->columnWidth(position);
    const int frame = 2 * table_->frameWidth();
    const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const QMargins margins = layout()->contentsMargins();
    const int tableWidth = columns + frame + scrollBar + margins.left() + margins.right();
    const int tableHeight = table_->horizontalHeader()->sizeHint().height() +
                            kRowsShown * table_->verticalHeader()->defaultSectionSize() + frame;
    const QSize around = layout()->sizeHint();
    return {std::max(tableWidth, around.width()), around.height() - table_->sizeHint().height() + tableHeight};
}

void cDlgLayer::storeGeometry() {
    LayerDialogSettings& s = session_.settings();
    s.posX = geometry().x();
    s.posY = geometry().y();
    s.sizeX = geometry().width();
    s.sizeY = geometry().height();
    for (int position = 0; position < model_->columns().count(); ++position)
        widthOfColumn(s, model_->columns().at(position)) = table_->columnWidth(position);
}

void cDlgLayer::refill() {
    LayerEntry* current = chosenEntry();
    model_->setPriority(session_.settings().currentPrio);
    model_->fill(session_.list(), session_.view());
    for (int position = 0; position < model_->columns().count(); ++position)
        table_->setColumnWidth(position, widthOfColumn(session_.settings(), model_->columns().at(position)));
    if (filter_->isChecked()) search(search_->text());
    const int row = model_->rowOf(current);
    if (row >= 0) table_->selectRow(row);
    updateCommands();
}

LayerEntry* cDlgLayer::chosenEntry() const {
    if (!table_ || !table_->selectionModel()) return nullptr;
    const QModelIndex current = table_->selectionModel()->currentIndex();
    if (current.isValid() && table_->selectionModel()->isRowSelected(current.row()))
        return model_->entryAt(current.row());
    const QModelIndexList rows = table_->selectionModel()->selectedRows();
    return rows.isEmpty() ? nullptr : model_->entryAt(rows.first().row());
}

std::vector<LayerEntry*> cDlgLayer::selectedEntries() const {
    std::vector<LayerEntry*> entries;
    if (!table_->selectionModel()) return entries;
    for (const QModelIndex& index : table_->selectionModel()->selectedRows())
        if (LayerEntry* e = model_->entryAt(index.row())) entries.push_back(e);
    return entries;
}

void cDlgLayer::updateCommands() {
    const LayerCommandState state = commandStateOf(session_.mode(), session_.view(), session_.changed(),
                                                   selectedEntries(), host().workingDrawing() != nullptr);
    for (auto& [command, action] : actions_) action->setEnabled(commandEnabled(command, state));
    for (LayerCommand c : kViewMenu) actions_[c]->setChecked(viewOfCommand(c) == session_.view());
    actions_[LayerCommand::OptsDwg]->setChecked(session_.settings().currentPrio == 1);
    actions_[LayerCommand::OptsIni]->setChecked(session_.settings().currentPrio == 2);
}

void cDlgLayer::run(LayerCommand command) {
    if (!commandEnabled(command, commandStateOf(session_.mode(), session_.view(), session_.changed(),
                                                selectedEntries(), host().workingDrawing() != nullptr)))
        return;
    switch (command) {
        case LayerCommand::FileNew:
            session_.startNewFile();
            refill();
            break;
        case LayerCommand::FileOpen: openFile(); break;
        case LayerCommand::FileSave: saveFile(false); break;
        case LayerCommand::FileSaveAs: saveFile(true); break;
        case LayerCommand::FileQuit: reject(); break;
        case LayerCommand::ViewObjects:
        case LayerCommand::ViewObjectType:
        case LayerCommand::ViewDrawing:
        case LayerCommand::ViewCentral: switchView(viewOfCommand(command)); break;
        case LayerCommand::LayerNew: newEntry(propsmode::kNew, newEntryProposal(session_.list()), nullptr); break;
        case LayerCommand::LayerBased:
        case LayerCommand::LayerFromCentral: newBasedOnChosen(); break;
        case LayerCommand::LayerPick:
            // The modal loop is left while the user picks; exec() picks and comes back.
            picking_ = true;
            QDialog::done(kPickResult);
            break;
        case LayerCommand::LayerChange: changeEntry(); break;
        case LayerCommand::LayerColor: chooseColour(); break;
        case LayerCommand::LayerLinetype: chooseLinetype(); break;
        case LayerCommand::LayerRegen: {
            const RegenerateCount count = session_.regenerate();
            if (count.changed > 0 && host().mainWindow()) host().mainWindow()->activateWindow();
            model_->fill(session_.list(), session_.view());
            break;
        }
        case LayerCommand::LayerDelete: deleteSelected(); break;
        case LayerCommand::OptsConfig: configure(); break;
        case LayerCommand::OptsDwg:
        case LayerCommand::OptsIni:
            session_.settings().currentPrio = command == LayerCommand::OptsDwg ? 1 : 2;
            model_->setPriority(session_.settings().currentPrio);
            break;
        case LayerCommand::HelpHelp: showHelpTopic(helpTopicOfMode(session_.mode())); break;
        case LayerCommand::HelpInfo: {
            const ProductInfo info = gatherProductInfo();
            cDlgInfo(info, this).exec();
            break;
        }
    }
    updateCommands();
}

void cDlgLayer::configure() {
    const std::string columnsBefore = session_.settings().dataCols;
    cDlgOptions options(session_.settings(), this);
    if (options.exec() != QDialog::Accepted) return;
    model_->setMarkDrawingLayers(session_.settings().markLayers);
    if (session_.settings().dataCols != columnsBefore) {
        storeGeometry();
        model_->buildColumns(session_.settings().dataCols);
    }
    refill();
}

void cDlgLayer::switchView(int view) {
    session_.setView(view);
    refill();
}

void cDlgLayer::newEntry(int propsMode, const LayerEntry& proposal, const LayerEntry* base) {
    LayerEntry edited = proposal;
    // A new entry of the object dialog is a layer of the current object.
    if (session_.mode() == layermode::kObject) edited.flags |= entryflag::kCurrentObject | entryflag::kInObjectFile;
    cDlgProps props(propsMode, edited, session_.list(), nullptr, base, this);
    if (props.exec() != QDialog::Accepted) return;
    LayerEntry& added = session_.addEntry(props.entry());
    table_->clearSelection();
    refill();
    const int row = model_->rowOf(&added);
    if (row >= 0) {
        table_->selectRow(row);
        table_->scrollTo(model_->index(row, 0));
    }
    updateCommands();
}

void cDlgLayer::newBasedOnChosen() {
    const LayerEntry* base = chosenEntry();
    if (!base) return;
    newEntry(session_.mode() == layermode::kObject ? propsmode::kBasedObject : propsmode::kBased,
             entryBasedOn(session_.list(), *base), base);
}

void cDlgLayer::changeEntry() {
    LayerEntry* entry = chosenEntry();
    if (!entry) return;
    const bool inFile = entry->has(entryflag::kFromFile);
    cDlgProps props(inFile ? propsmode::kChange : propsmode::kShow, *entry, session_.list(), entry, nullptr, this);
    if (props.exec() != QDialog::Accepted || !inFile) return;
    session_.changeEntry(*entry, props.entry());
    refill();
}

int cDlgLayer::exec() {
    for (;;) {
        const int result = QDialog::exec();
        if (!std::exchange(picking_, false)) return result;
        pickLayer();
    }
}

void cDlgLayer::pickLayer() {
    HostDrawing* drawing = host().workingDrawing();
    if (!drawing) return;
    std::int64_t entity = 0;
    Point3 point{};
    if (host().entSel(format("\n%s: ", catalogText(MsgKey::TtLayrPick)), entity, point) != RTNORM) return;
    const std::optional<std::string> layer = drawing->layerOfEntity(entity);
    if (!layer) return;
    // Offered once the dialog is shown again.
    QTimer::singleShot(0, this, [this, name = *layer] { offerPickedLayer(name); });
}

void cDlgLayer::offerPickedLayer(const std::string& layer) {
    const FoundEntry found = session_.list().findByName(layer);
    if (!found) return;
    // The picked layer's row is chosen, as if the user had selected it.
    const int row = model_->rowOf(found.entry);
    if (row >= 0) {
        table_->selectRow(row);
        table_->scrollTo(model_->index(row, 0));
    }
    newEntry(session_.mode() == layermode::kObject ? propsmode::kBasedObject : propsmode::kBased,
             entryBasedOn(session_.list(), *found.entry), found.entry);
}

void cDlgLayer::chooseColour() {
    const std::vector<LayerEntry*> selection = selectedEntries();
    const LayerEntry* first = nullptr;
    for (const LayerEntry* e : selection)
        if (e->has(entryflag::kFromFile)) { first = e; break; }
    if (!first) return;
    HostColor colour = decodeColour(first->fileColor, first->fileColorBookName, first->fileColorName);
    if (host().colorDialog(colour, true) != RTNORM) return;
    if (!session_.setColour(selection, colour)) {
        host().messageBox(catalogText(MsgKey::EtChangeLayerColor), catalogText(MsgKey::TiMsgBoxError), MbButtons::Ok,
                          MbIcon::Error);
        return;
    }
    for (const LayerEntry* e : selection) model_->entryChanged(e);
}

void cDlgLayer::chooseLinetype() {
    const std::vector<LayerEntry*> selection = selectedEntries();
    cDlgOpenLineType picker(this, moduleFiles().programFolder);
    // Starts at the linetype file and linetype of the first selected entry.
    for (const LayerEntry* e : selection) {
        std::string path;
        if (!e->has(entryflag::kFromFile) || e->fileLinetypeFile.empty()) continue;
        if (host().findFile(e->fileLinetypeFile, path))
            picker.selectLinetypeFile(QString::fromStdString(path), QString::fromStdString(e->fileLinetype));
        break;
    }
    if (picker.exec() != QDialog::Accepted || picker.chosenLinetype().empty()) return;
    if (!session_.setLinetype(selection, picker.chosenLinetype(), picker.chosenFile())) {
        host().messageBox(catalogText(MsgKey::EtChangeLayerLineType), catalogText(MsgKey::TiMsgBoxError),
                          MbButtons::Ok, MbIcon::Error);
        return;
    }
    for (const LayerEntry* e : selection) model_->entryChanged(e);
}

void cDlgLayer::deleteSelected() {
    if (session_.deleteEntries(selectedEntries())) refill();
}

void cDlgLayer::openFile() {
    const QString filter = qCatalog(MsgKey::RsFileDlgArdoLayer) + " (*.ini);;" + qCatalog(MsgKey::RsFileDlgAllFiles) + " (*)";
    QFileDialog dialog(this, qCatalog(MsgKey::RsFileDlgTiOpenArdo), qText(session_.path()), filter);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setDefaultSuffix("ini");
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return;
    session_.open(dialog.selectedFiles().first().toStdString());
    refill();
}

std::string cDlgLayer::askSavePath() {
    const QString filter = qCatalog(MsgKey::RsFileDlgArdoLayer) + " (*.ini);;" + qCatalog(MsgKey::RsFileDlgAllFiles) + " (*)";
    QFileDialog dialog(this, qCatalog(MsgKey::RsFileDlgTiSaveArdo), qText(session_.path()), filter);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix("ini");
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return dialog.selectedFiles().first().toStdString();
}

bool cDlgLayer::saveFile(bool askPath) {
    const std::string path = askPath || session_.path().empty() ? askSavePath() : session_.path();
    choiceBeforeSave_ = chosenRow();
    if (path.empty() || !session_.save(path)) return false;
    if (askPath) host().print(format("\n%s '%s'\n", catalogText(MsgKey::TxArdoLayerSavedAs), path));
    return true;
}

cDlgLayer::ChosenRow cDlgLayer::chosenRow() const {
    const LayerEntry* e = chosenEntry();
    return e ? ChosenRow{e->key, e->name} : ChosenRow{};
}

void cDlgLayer::refillAfterReload(const ChosenRow& chosen) {
    // Saving reads the file again: the rows' entries are new, so the choice is found again
    // by key, or by name for a layer only in the drawing.
    table_->clearSelection();
    refill();
    if (chosen.key.empty() && chosen.name.empty()) return;
    for (int row = 0; row < model_->rowCount(); ++row) {
        const LayerEntry* e = model_->entryAt(row);
        if (chosen.key.empty() ? e->key.empty() && equalsNoCase(e->name, chosen.name) : equalsNoCase(e->key, chosen.key)) {
            table_->selectRow(row);
            return;
        }
    }
}

void cDlgLayer::search(const QString& text) {
    const std::string wanted = upperCase(text.trimmed().toStdString());
    int first = -1;
    for (int row = 0; row < model_->rowCount(); ++row) {
        const LayerEntry* e = model_->entryAt(row);
        // Key or name holding the text, any case.
        const bool match = wanted.empty() || upperCase(e->key).find(wanted) != std::string::npos ||
                           e->sortName.find(wanted) != std::string::npos ||
                           upperCase(e->name).find(wanted) != std::string::npos;
        table_->setRowHidden(row, filter_->isChecked() && !match);
        if (match && first < 0 && !wanted.empty()) first = row;
    }
    if (first >= 0) {
        table_->selectRow(first);
        table_->scrollTo(model_->index(first, 0));
    }
}

bool cDlgLayer::editCell(int column) {
    if (column != 0 && column != 1) return false;
    const QModelIndexList rows = table_->selectionModel()->selectedRows();
    if (rows.size() != 1) return false;
    LayerEntry* entry = model_->entryAt(rows.first().row());
    // A layer only in the drawing has no key to give, and its name is the drawing's.
    if (!entry || !entry->has(entryflag::kFromFile)) return false;
    delete cellEdit_;
    const QModelIndex index = model_->index(rows.first().row(), column);
    table_->scrollTo(index);
    editedEntry_ = entry;
    editedColumn_ = column;
    cellEdit_ = new cCellEdit(table_->viewport(), table_->visualRect(index), index.data().toString(),
                              [this] { commitCellEdit(); });
    return true;
}

void cDlgLayer::commitCellEdit() {
    LayerEntry* entry = std::exchange(editedEntry_, nullptr);
    cCellEdit* editor = std::exchange(cellEdit_, nullptr);
    if (!editor) return;
    const std::string text = editor->text().toStdString();
    editor->hide();
    editor->deleteLater();
    if (!entry) return;
    bool changed = false;
    if (editedColumn_ == 0) {
        changed = acceptEditedKey(session_.list(), *entry, text);
    } else if (!equalsNoCase(trimWhite(text), entry->name)) {
        // The same letters in other case are no new name.
        const std::string before = entry->name;
        changed = acceptEditedName(session_.list(), *entry, text);
        if (changed) {
            entry->sortName = upperCase(entry->name);
            // The drawing's layer follows when the central file is saved.
            if (entry->has(entryflag::kInDrawing)) session_.queueRename(before, entry->name);
            else host().print(format("OnEditFocusKilled Nam T:%d Op:%d\n", static_cast<int>(entry->flags), 0));
        }
    }
    if (changed) {
        if (entry->state == 0) entry->state = 1;
        session_.setChanged();
        model_->entryChanged(entry);
        updateCommands();
    }
    table_->setFocus();
}

std::unique_ptr<cIconMenu> cDlgLayer::contextMenu() {
    if (menuIcons_.empty()) {
        menuIcons_ = iconMenuImages(false);
        menuIconsGreyed_ = iconMenuImages(true);
    }
    updateCommands();
    auto menu = std::make_unique<cIconMenu>(&menuIcons_, &menuIconsGreyed_, this, this);
    const auto add = [&](LayerCommand c) { menu->appendItem(actions_[c], commandIdOf(c)); };
    for (LayerCommand c : {LayerCommand::LayerNew, LayerCommand::LayerBased, LayerCommand::LayerFromCentral,
                           LayerCommand::LayerChange})
        add(c);
    menu->addSeparator();
    add(LayerCommand::LayerColor);
    add(LayerCommand::LayerLinetype);
    menu->addSeparator();
    add(LayerCommand::LayerDelete);
    return menu;
}

void cDlgLayer::showContextMenu(const QPoint& at) {
    const std::unique_ptr<cIconMenu> menu = contextMenu();
    menu->exec(table_->viewport()->mapToGlobal(at + QPoint(0, kContextMenuDrop)));
}

void cDlgLayer::keyPressEvent(QKeyEvent* event) {
    // Enter belongs to the list and the cell editor, never to the default button.
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && cellEdit_) return;
    QDialog::keyPressEvent(event);
}

bool cDlgLayer::eventFilter(QObject* watched, QEvent* event) {
    if (watched == table_ && event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_F2) {
            const QModelIndex current = table_->currentIndex();
            const int column = current.isValid() && current.column() == 1 ? 1 : 0;
            const LayerEntry* entry = chosenEntry();
            // A layer only in the drawing has neither a key to give nor a name to change here.
            if (entry && !entry->has(entryflag::kFromFile)) {
                const MsgKey first = column == 0 ? MsgKey::TxCantRenameDwgKey1 : MsgKey::TxCantRenameDwgLayer1;
                const MsgKey second = column == 0 ? MsgKey::TxCantRenameDwgKey2 : MsgKey::TxCantRenameDwgLayer2;
                host().messageBox(catalogText(first) + "\n" + catalogText(second), catalogText(MsgKey::TiMsgBoxInfo),
                                  MbButtons::Ok, MbIcon::Information);
                return true;
            }
            editCell(column);
            return true;
        }
        if (key->key() == Qt::Key_Delete) {
            run(LayerCommand::LayerDelete);
            return true;
        }
        if ((key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) && !cellEdit_) {
            run(LayerCommand::LayerChange);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void cDlgLayer::timerEvent(QTimerEvent* event) {
    if (event->timerId() != timer_) return;
    // The commands follow the selection and the drawing between user actions too.
    updateCommands();
    updateLayerTip();
}

void cDlgLayer::updateLayerTip() {
    const QPoint cursor = table_->viewport()->mapFromGlobal(QCursor::pos());
    const QModelIndex index = isActiveWindow() && !cellEdit_ && table_->viewport()->rect().contains(cursor)
                                  ? table_->indexAt(cursor) : QModelIndex();
    const int row = index.isValid() ? index.row() : -1;
    // The tip opens once the cursor has rested on a row for one tick.
    if (row < 0 || row != hoverRow_) {
        if (tip_) tip_->hide();
    } else if (!tip_ || !tip_->isVisible()) {
        showLayerTip(row);
    }
    hoverRow_ = row;
}

void cDlgLayer::showLayerTip(int row) {
    const LayerEntry* entry = model_->entryAt(row);
    if (!entry) return;
    if (!tip_) tip_ = new cWndLayerTip(this);
    const QRect cell = table_->visualRect(model_->index(row, 0));
    const QPoint at = table_->viewport()->mapToGlobal(QPoint(cell.left() + kTipOffset, cell.bottom() + 1));
    tip_->showFor(entry->flags, session_.mode() == layermode::kObject, at, kTipWidth, cell.height());
}

void cDlgLayer::done(int result) {
    if (closing_ || picking_) return;
    if (cellEdit_) commitCellEdit();
    choiceBeforeSave_ = chosenRow();
    // Kept before a save's refill puts the stored column widths back.
    storeGeometry();
    if (!session_.confirmClose([this] { return askSavePath(); }, chosenEntry())) return;
    closing_ = true;
    if (timer_) killTimer(timer_);
    QDialog::done(result);
}

}  // namespace ardo
