#pragma once
// The linetype picker: the file-open dialog for ".lin" files with the two-column list of
// the linetypes the selected file defines below it.
#include <QFileDialog>
#include <string>

class QTableWidget;

namespace ardo {

class cDlgOpenLineType : public QFileDialog {
public:
    cDlgOpenLineType(QWidget* parent, const std::string& folder);

    QTableWidget& linetypeList() { return *list_; }
    // The file whose linetypes are listed, and the linetype chosen from it.
    std::string chosenFile() const;
    std::string chosenLinetype() const;

    // Selects a file and lists its linetypes with the given one selected.
    void selectLinetypeFile(const QString& path, const QString& linetype = {});
    // Fills the list for this file.
    void showLinetypesOf(const QString& path);

private:
    QTableWidget* list_ = nullptr;
    QString listedFile_;
};

}  // namespace ardo
