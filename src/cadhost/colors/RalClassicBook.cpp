#include <array>

#include "cadhost/colors/ColorBook.h"

namespace cadhost {

namespace {

// RAL Classic, the 213 colours of the collection before the additions of 2020, with the
// sRGB values commonly published for them (screen approximations of the physical cards).
constexpr std::array<BookColor, 213> kRalClassic{{
    {"RAL 1000", 190, 189, 127},  // Green beige
    {"RAL 1001", 194, 176, 120},  // Beige
    {"RAL 1002", 198, 166, 100},  // Sand yellow
    {"RAL 1003", 229, 190, 1},  // Signal yellow
    {"RAL 1004", 205, 164, 52},  // Golden yellow
    {"RAL 1005", 169, 131, 7},  // Honey yellow
    {"RAL 1006", 228, 160, 16},  // Maize yellow
    {"RAL 1007", 220, 156, 0},  // Daffodil yellow
    {"RAL 1011", 138, 102, 66},  // Brown beige
    {"RAL 1012", 199, 180, 70},  // Lemon yellow
    {"RAL 1013", 234, 230, 202},  // Oyster white
    {"RAL 1014", 225, 204, 79},  // Ivory
    {"RAL 1015", 230, 214, 144},  // Light ivory
    {"RAL 1016", 237, 255, 33},  // Sulfur yellow
    {"RAL 1017", 245, 208, 51},  // Saffron yellow
    {"RAL 1018", 248, 243, 53},  // Zinc yellow
    {"RAL 1019", 158, 151, 100},  // Grey beige
    {"RAL 1020", 153, 153, 80},  // Olive yellow
    {"RAL 1021", 243, 218, 11},  // Rape yellow
    {"RAL 1023", 250, 210, 1},  // Traffic yellow
    {"RAL 1024", 174, 160, 75},  // Ochre yellow
    {"RAL 1026", 255, 255, 0},  // Luminous yellow
    {"RAL 1027", 157, 145, 1},  // Curry
    {"RAL 1028", 244, 169, 0},  // Melon yellow
    {"RAL 1032", 214, 174, 1},  // Broom yellow
    {"RAL 1033", 243, 165, 5},  // Dahlia yellow
    {"RAL 1034", 239, 169, 74},  // Pastel yellow
    {"RAL 1035", 106, 93, 77},  // Pearl beige
    {"RAL 1036", 112, 83, 53},  // Pearl gold
    {"RAL 1037", 243, 159, 24},  // Sun yellow
    {"RAL 2000", 237, 118, 14},  // Yellow orange
    {"RAL 2001", 201, 60, 32},  // Red orange
    {"RAL 2002", 203, 40, 33},  // Vermilion
    {"RAL 2003", 255, 117, 20},  // Pastel orange
    {"RAL 2004", 244, 70, 17},  // Pure orange
    {"RAL 2005", 255, 35, 1},  // Luminous orange
    {"RAL 2007", 255, 164, 32},  // Luminous bright orange
    {"RAL 2008", 247, 94, 37},  // Bright red orange
    {"RAL 2009", 245, 64, 33},  // Traffic orange
    {"RAL 2010", 216, 75, 32},  // Signal orange
    {"RAL 2011", 236, 124, 38},  // Deep orange
    {"RAL 2012", 235, 106, 14},  // Salmon orange
    {"RAL 2013", 195, 88, 49},  // Pearl orange
    {"RAL 3000", 175, 43, 30},  // Flame red
    {"RAL 3001", 165, 32, 25},  // Signal red
    {"RAL 3002", 162, 35, 29},  // Carmine red
    {"RAL 3003", 155, 17, 30},  // Ruby red
    {"RAL 3004", 117, 21, 30},  // Purple red
    {"RAL 3005", 94, 33, 41},  // Wine red
    {"RAL 3007", 65, 34, 39},  // Black red
    {"RAL 3009", 100, 36, 36},  // Oxide red
    {"RAL 3011", 120, 31, 25},  // Brown red
    {"RAL 3012", 193, 135, 107},  // Beige red
    {"RAL 3013", 161, 35, 18},  // Tomato red
    {"RAL 3014", 211, 110, 112},  // Antique pink
    {"RAL 3015", 234, 137, 154},  // Light pink
    {"RAL 3016", 179, 40, 33},  // Coral red
    {"RAL 3017", 230, 50, 68},  // Rose
    {"RAL 3018", 213, 48, 50},  // Strawberry red
    {"RAL 3020", 204, 6, 5},  // Traffic red
    {"RAL 3022", 217, 80, 48},  // Salmon pink
    {"RAL 3024", 248, 0, 0},  // Luminous red
    {"RAL 3026", 254, 0, 0},  // Luminous bright red
    {"RAL 3027", 197, 29, 52},  // Raspberry red
    {"RAL 3028", 203, 50, 52},  // Pure red
    {"RAL 3031", 179, 36, 40},  // Orient red
    {"RAL 3032", 114, 20, 34},  // Pearl ruby red
    {"RAL 3033", 180, 76, 67},  // Pearlpink
    {"RAL 4001", 109, 63, 91},  // Red lilac
    {"RAL 4002", 146, 43, 62},  // Red violet
    {"RAL 4003", 222, 76, 138},  // Heather violet
    {"RAL 4004", 110, 28, 52},  // Claret violet
    {"RAL 4005", 108, 70, 117},  // Blue lilac
    {"RAL 4006", 160, 52, 114},  // Traffic purple
    {"RAL 4007", 74, 25, 44},  // Purple violet
    {"RAL 4008", 144, 70, 132},  // Signal violet
    {"RAL 4009", 164, 125, 144},  // Pastel violet
    {"RAL 4010", 215, 45, 109},  // Telemagenta
    {"RAL 4011", 134, 115, 161},  // Pearl violet
    {"RAL 4012", 108, 104, 129},  // Pearl black berry
    {"RAL 5000", 42, 46, 75},  // Violet blue
    {"RAL 5001", 31, 52, 56},  // Green blue
    {"RAL 5002", 32, 33, 79},  // Ultramarine blue
    {"RAL 5003", 29, 30, 51},  // Saphire blue
    {"RAL 5004", 24, 23, 28},  // Black blue
    {"RAL 5005", 30, 45, 110},  // Signal blue
    {"RAL 5007", 62, 95, 138},  // Brillant blue
    {"RAL 5008", 38, 37, 45},  // Grey blue
    {"RAL 5009", 2, 86, 105},  // Azure blue
    {"RAL 5010", 14, 41, 75},  // Gentian blue
    {"RAL 5011", 35, 26, 36},  // Steel blue
    {"RAL 5012", 59, 131, 189},  // Light blue
    {"RAL 5013", 37, 41, 74},  // Cobalt blue
    {"RAL 5014", 96, 111, 140},  // Pigeon blue
    {"RAL 5015", 34, 113, 179},  // Sky blue
    {"RAL 5017", 6, 57, 113},  // Traffic blue
    {"RAL 5018", 63, 136, 143},  // Turquoise blue
    {"RAL 5019", 27, 85, 131},  // Capri blue
    {"RAL 5020", 29, 51, 74},  // Ocean blue
    {"RAL 5021", 37, 109, 123},  // Water blue
    {"RAL 5022", 37, 40, 80},  // Night blue
    {"RAL 5023", 73, 103, 141},  // Distant blue
    {"RAL 5024", 93, 155, 155},  // Pastel blue
    {"RAL 5025", 42, 100, 120},  // Pearl gentian blue
    {"RAL 5026", 16, 44, 84},  // Pearl night blue
    {"RAL 6000", 49, 102, 80},  // Patina green
    {"RAL 6001", 40, 114, 51},  // Emerald green
    {"RAL 6002", 45, 87, 44},  // Leaf green
    {"RAL 6003", 66, 70, 50},  // Olive green
    {"RAL 6004", 31, 58, 61},  // Blue green
    {"RAL 6005", 47, 69, 56},  // Moss green
    {"RAL 6006", 62, 59, 50},  // Grey olive
    {"RAL 6007", 52, 59, 41},  // Bottle green
    {"RAL 6008", 57, 53, 42},  // Brown green
    {"RAL 6009", 49, 55, 43},  // Fir green
    {"RAL 6010", 53, 104, 45},  // Grass green
    {"RAL 6011", 88, 114, 70},  // Reseda green
    {"RAL 6012", 52, 62, 64},  // Black green
    {"RAL 6013", 108, 113, 86},  // Reed green
    {"RAL 6014", 71, 64, 46},  // Yellow olive
    {"RAL 6015", 59, 60, 54},  // Black olive
    {"RAL 6016", 30, 89, 69},  // Turquoise green
    {"RAL 6017", 76, 145, 65},  // May green
    {"RAL 6018", 87, 166, 57},  // Yellow green
    {"RAL 6019", 189, 236, 182},  // Pastel green
    {"RAL 6020", 46, 58, 35},  // Chrome green
    {"RAL 6021", 137, 172, 118},  // Pale green
    {"RAL 6022", 37, 34, 27},  // Olive drab
    {"RAL 6024", 48, 132, 70},  // Traffic green
    {"RAL 6025", 61, 100, 45},  // Fern green
    {"RAL 6026", 1, 93, 82},  // Opal green
    {"RAL 6027", 132, 195, 190},  // Light green
    {"RAL 6028", 44, 85, 69},  // Pine green
    {"RAL 6029", 32, 96, 61},  // Mint green
    {"RAL 6032", 49, 127, 67},  // Signal green
    {"RAL 6033", 73, 126, 118},  // Mint turquoise
    {"RAL 6034", 127, 181, 181},  // Pastel turquoise
    {"RAL 6035", 28, 84, 45},  // Pearl green
    {"RAL 6036", 22, 53, 55},  // Pearl opal green
    {"RAL 6037", 0, 143, 57},  // Pure green
    {"RAL 6038", 0, 187, 45},  // Luminous green
    {"RAL 7000", 120, 133, 139},  // Squirrel grey
    {"RAL 7001", 138, 149, 151},  // Silver grey
    {"RAL 7002", 126, 123, 82},  // Olive grey
    {"RAL 7003", 108, 112, 89},  // Moss grey
    {"RAL 7004", 150, 153, 146},  // Signal grey
    {"RAL 7005", 100, 107, 99},  // Mouse grey
    {"RAL 7006", 109, 101, 82},  // Beige grey
    {"RAL 7008", 106, 95, 49},  // Khaki grey
    {"RAL 7009", 77, 86, 69},  // Green grey
    {"RAL 7010", 76, 81, 74},  // Tarpaulin grey
    {"RAL 7011", 67, 75, 77},  // Iron grey
    {"RAL 7012", 78, 87, 84},  // Basalt grey
    {"RAL 7013", 70, 69, 49},  // Brown grey
    {"RAL 7015", 67, 71, 80},  // Slate grey
    {"RAL 7016", 41, 49, 51},  // Anthracite grey
    {"RAL 7021", 35, 40, 43},  // Black grey
    {"RAL 7022", 51, 47, 44},  // Umbra grey
    {"RAL 7023", 104, 108, 94},  // Concrete grey
    {"RAL 7024", 71, 74, 81},  // Graphite grey
    {"RAL 7026", 47, 53, 59},  // Granite grey
    {"RAL 7030", 139, 140, 122},  // Stone grey
    {"RAL 7031", 71, 75, 78},  // Blue grey
    {"RAL 7032", 184, 183, 153},  // Pebble grey
    {"RAL 7033", 125, 132, 113},  // Cement grey
    {"RAL 7034", 143, 139, 102},  // Yellow grey
    {"RAL 7035", 203, 208, 204},  // Light grey
    {"RAL 7036", 127, 118, 121},  // Platinum grey
    {"RAL 7037", 125, 127, 120},  // Dusty grey
    {"RAL 7038", 195, 195, 195},  // Agate grey
    {"RAL 7039", 108, 105, 96},  // Quartz grey
    {"RAL 7040", 157, 161, 170},  // Window grey
    {"RAL 7042", 141, 148, 141},  // Traffic grey A
    {"RAL 7043", 78, 84, 82},  // Traffic grey B
    {"RAL 7044", 202, 196, 176},  // Silk grey
    {"RAL 7045", 144, 144, 144},  // Telegrey 1
    {"RAL 7046", 130, 137, 143},  // Telegrey 2
    {"RAL 7047", 208, 208, 208},  // Telegrey 4
    {"RAL 7048", 137, 129, 118},  // Pearl mouse grey
    {"RAL 8000", 130, 108, 52},  // Green brown
    {"RAL 8001", 149, 95, 32},  // Ochre brown
    {"RAL 8002", 108, 59, 42},  // Signal brown
    {"RAL 8003", 115, 66, 34},  // Clay brown
    {"RAL 8004", 142, 64, 42},  // Copper brown
    {"RAL 8007", 89, 53, 31},  // Fawn brown
    {"RAL 8008", 111, 79, 40},  // Olive brown
    {"RAL 8011", 91, 58, 41},  // Nut brown
    {"RAL 8012", 89, 35, 33},  // Red brown
    {"RAL 8014", 56, 44, 30},  // Sepia brown
    {"RAL 8015", 99, 58, 52},  // Chestnut brown
    {"RAL 8016", 76, 47, 39},  // Mahogany brown
    {"RAL 8017", 69, 50, 46},  // Chocolate brown
    {"RAL 8019", 64, 58, 58},  // Grey brown
    {"RAL 8022", 33, 33, 33},  // Black brown
    {"RAL 8023", 166, 94, 46},  // Orange brown
    {"RAL 8024", 121, 85, 61},  // Beige brown
    {"RAL 8025", 117, 92, 72},  // Pale brown
    {"RAL 8028", 78, 59, 49},  // Terra brown
    {"RAL 8029", 118, 60, 40},  // Pearl copper
    {"RAL 9001", 250, 244, 227},  // Cream
    {"RAL 9002", 231, 235, 218},  // Grey white
    {"RAL 9003", 244, 244, 244},  // Signal white
    {"RAL 9004", 40, 40, 40},  // Signal black
    {"RAL 9005", 10, 10, 13},  // Jet black
    {"RAL 9006", 165, 165, 165},  // White aluminium
    {"RAL 9007", 143, 143, 143},  // Grey aluminium
    {"RAL 9010", 255, 255, 255},  // Pure white
    {"RAL 9011", 28, 28, 28},  // Graphite black
    {"RAL 9016", 246, 246, 246},  // Traffic white
    {"RAL 9017", 30, 30, 30},  // Traffic black
    {"RAL 9018", 207, 211, 205},  // Papyrus white
    {"RAL 9022", 156, 156, 156},  // Pearl light grey
    {"RAL 9023", 130, 130, 130},  // Pearl dark grey
}};

}  // namespace

const ColorBook& ralClassicBook() {
    static const ColorBook book{"RAL CLASSIC", kRalClassic};
    return book;
}

}  // namespace cadhost
