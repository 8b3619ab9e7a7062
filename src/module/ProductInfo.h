#pragma once
// What the about, info and version windows show, and the same as command-line text for a
// console without a display: product, company and version texts of the configuration, the
// module's and the host's versions, and the files the module works with.
#include <functional>
#include <string>
#include <vector>

namespace ardo {

struct ProductFile {
    std::string role;  // what the file is for
    std::string path;
    bool present = false;
};

struct ProductInfo {
    std::string productName;   // PRODUCTINFO ProductName
    std::string productText;   // PRODUCTINFO ProductText
    std::string companyName;   // PRODUCTINFO CompanyName
    std::string rights;        // PRODUCTINFO Copyright
    std::string version;       // VERSION Version
    std::string build;         // VERSION Build
    std::string servicePack;   // VERSION ServicePack
    std::string moduleVersion; // the version the module was built as
    std::string hostProgram;   // the host's PROGRAM
    std::string hostVersion;   // the host's ACADVER
    std::vector<ProductFile> files;
};

ProductInfo gatherProductInfo();

// The information as lines for the command line, labelled with the catalog's texts.
std::string productInfoText(const ProductInfo& info);

enum class ProductWindow { About, Info, Version };

// Opens a product information window; false when none can be shown (no display). The
// module's windows install one.
using ProductWindowOpener = std::function<bool(ProductWindow, const ProductInfo&)>;
void setProductWindowOpener(ProductWindowOpener opener);

// The window, or the text on the command line when no window can be shown.
void showProductInfo(ProductWindow which);

}  // namespace ardo
