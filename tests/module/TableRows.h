#pragma once
// Every row of the module's LISP function table in its order, with its argument list as
// the functions document it. Each argument: 's' string, 'i' integer, 'a' any value;
// upper case is required, lower case optional.
#include <string>
#include <vector>

namespace ardo::test {

struct TableRow {
    const char* name;
    const char* arguments;
    bool rejectsExtra = false;
};

inline const std::vector<TableRow>& tableRows() {
    static const std::vector<TableRow> rows = {
        {"c:kemb_lcinit", ""},
        {"kemb_queryInit", ""},
        {"kemb_modulverz", "Sa"},
        {"kemb_pathInfo", "S"},
        {"kemb_dateiverz", "S"},
        {"kemb_text", "SSS"},
        {"kemb_textliste", "SS"},
        {"Kemb_GetLayerFile", "S"},
        {"Kemb_GetLayerDataEx", "SS"},
        {"Kemb_MakeLayer", "SSIss"},
        {"kemb_newlayer", "SSss"},
        {"kemb_setlayer", "SSI"},
        {"kemb_getlayername", "SS"},
        {"kemb_getlayerkey", "SS"},
        {"kemb_xloaded", "S"},
        {"kemb_xload", "S"},
        {"kemb_xloadProg", "S"},
        {"kemb_delfile", "S"},
        {"kemb_getObjektLayer", "SSSS"},
        {"kemb_layerDialog", ""},
        {"kemb_ArdoIniDialog", ""},
        {"C:Kemb_EditLayers", ""},
        {"kemb_ColorDialog", "aa"},
        {"kemb_Highlight", ""},
        {"C:kemb_HighlightOptions", ""},
        {"kemb_GetLayerRgbColor", "SS"},
        {"kemb_MakeAreaShape", "SAsa", true},
        {"kemb_mkLayerKey", ""},
        {"kemb_iniSchreiben", "SSS"},
        {"kemb_findfile", "S"},
        {"kemb_menucmdgrey", "SSI"},
        {"kemb_getLayerData", "SS"},
        {"kemb_GetUserIniPath", "Ss", true},
        {"kemb_GetUserIniFile", "Sss"},
        {"kemb_GetUserNames", "", true},
        {"kemb_GetCurrentUserName", "", true},
        {"kemb_GetComputerName", "", true},
        {"kemb_GetUserIniFileByModule", "SSs"},
        {"kemb_GetUserTempPath", ""},
        {"ardo$loaded", ""},
        {"kemb_ExecuteProgram", "Ss"},
        {"kemb_greyMenu", "SSi"},
        {"kemb_getColorDataFromLisp", "A"},
        {"kemb_getColorDataFromString", "S"},
        {"kemb_setCurrentColorFromLisp", "A"},
        {"C:Kemb_VersionInfo", ""},
        {"Kemb_LaunchFile", "S"},
        {"Kemb_getProductText", "S"},
        {"Kemb_getProductName", ""},
        {"Kemb_getCompanyName", ""},
        {"Kemb_getProductIcon", ""},
        {"Kemb_showAboutDialogue", ""},
        {"c:kemb_lmnu", ""},
        {"c:kemb_xmnu", ""},
    };
    return rows;
}

}  // namespace ardo::test
