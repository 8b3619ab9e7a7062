#include "module/LispFunctionTable.h"

#include "module/AreaShape.h"
#include "module/ModuleFunctions.h"
#include "module/ModuleInit.h"
#include "module/UnavailableFunctions.h"
#include "module/paths/PathFunctions.h"
#include "layers/ColorFunctions.h"
#include "layers/LayerFunctions.h"
#include "layers/LayerKeyFunctions.h"
#include "messages/MessageFunctions.h"
#include "settings/SettingsFunctions.h"

namespace ardo {

namespace {

using namespace handlers;

// The order is the function codes' and is kept; so is every name's spelling.
constexpr LispFunction kTable[] = {
    {"c:kemb_lcinit", c_kemb_lcinit},
    {"kemb_queryInit", kemb_queryInit},
    {"kemb_modulverz", kemb_modulverz},
    {"kemb_pathInfo", kemb_pathInfo},
    {"kemb_dateiverz", kemb_dateiverz},
    {"kemb_text", kemb_text},
    {"kemb_textliste", kemb_textliste},
    {"Kemb_GetLayerFile", Kemb_GetLayerFile},
    {"Kemb_GetLayerDataEx", Kemb_GetLayerDataEx},
    {"Kemb_MakeLayer", Kemb_MakeLayer},
    {"kemb_newlayer", kemb_newlayer},
    {"kemb_setlayer", kemb_setlayer},
    {"kemb_getlayername", kemb_getlayername},
    {"kemb_getlayerkey", kemb_getlayerkey},
    {"kemb_xloaded", kemb_xloaded},
    {"kemb_xload", kemb_xload},
    {"kemb_xloadProg", kemb_xloadProg},
    {"kemb_delfile", kemb_delfile},
    {"kemb_getObjektLayer", kemb_getObjektLayer},
    {"kemb_layerDialog", kemb_layerDialog},
    {"kemb_ArdoIniDialog", kemb_ArdoIniDialog},
    {"C:Kemb_EditLayers", C_Kemb_EditLayers},
    {"kemb_ColorDialog", kemb_ColorDialog},
    {"kemb_Highlight", kemb_Highlight},
    {"C:kemb_HighlightOptions", C_kemb_HighlightOptions},
    {"kemb_GetLayerRgbColor", kemb_GetLayerRgbColor},
    {"kemb_MakeAreaShape", kemb_MakeAreaShape},
    {"kemb_mkLayerKey", kemb_mkLayerKey},
    {"kemb_iniSchreiben", kemb_iniSchreiben},
    {"kemb_findfile", kemb_findfile},
    {"kemb_menucmdgrey", kemb_menucmdgrey},
    {"kemb_getLayerData", kemb_getLayerData},
    {"kemb_GetUserIniPath", kemb_GetUserIniPath},
    {"kemb_GetUserIniFile", kemb_GetUserIniFile},
    {"kemb_GetUserNames", kemb_GetUserNames},
    {"kemb_GetCurrentUserName", kemb_GetCurrentUserName},
    {"kemb_GetComputerName", kemb_GetComputerName},
    {"kemb_GetUserIniFileByModule", kemb_GetUserIniFileByModule},
    {"kemb_GetUserTempPath", kemb_GetUserTempPath},
    {"ardo$loaded", ardo_loaded},
    {"kemb_ExecuteProgram", kemb_ExecuteProgram},
    {"kemb_greyMenu", kemb_greyMenu},
    {"kemb_getColorDataFromLisp", kemb_getColorDataFromLisp},
    {"kemb_getColorDataFromString", kemb_getColorDataFromString},
    {"kemb_setCurrentColorFromLisp", kemb_setCurrentColorFromLisp},
    {"C:Kemb_VersionInfo", C_Kemb_VersionInfo},
    {"Kemb_LaunchFile", Kemb_LaunchFile},
    {"Kemb_getProductText", Kemb_getProductText},
    {"Kemb_getProductName", Kemb_getProductName},
    {"Kemb_getCompanyName", Kemb_getCompanyName},
    {"Kemb_getProductIcon", Kemb_getProductIcon},
    {"Kemb_showAboutDialogue", Kemb_showAboutDialogue},
    {"c:kemb_lmnu", c_kemb_lmnu},
    {"c:kemb_xmnu", c_kemb_xmnu},
};

}  // namespace

std::span<const LispFunction> lispFunctionTable() { return kTable; }

}  // namespace ardo
