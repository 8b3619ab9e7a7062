#pragma once
// The product information windows: the about box, the info window with the files the
// module works with, and the version window on the product's coloured panel.
#include <QDialog>

#include "module/ProductInfo.h"

class QTreeWidget;

namespace ardo {

class cDlgAbout : public QDialog {
public:
    cDlgAbout(const ProductInfo& info, QWidget* parent);

private:
    const ProductInfo& info_;
};

class cDlgInfo : public QDialog {
public:
    cDlgInfo(const ProductInfo& info, QWidget* parent);
    QTreeWidget* files() const { return files_; }

private:
    QTreeWidget* files_;
};

class cDlgVersionInfo : public QDialog {
public:
    cDlgVersionInfo(const ProductInfo& info, QWidget* parent);
};

// The opener the module installs: the window of the kind asked for, modal over the host's
// main window; false without a display.
bool openProductWindow(ProductWindow which, const ProductInfo& info);

}  // namespace ardo
