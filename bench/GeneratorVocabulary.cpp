#include "GeneratorVocabulary.h"

namespace GeneratorVocabulary {

namespace {

// Types 1, 2 and 3 are the liquors that the cost averages count; 0 is "Undefined".
constexpr IdName kTypes[] = {{0, "Undefined"}, {1, "Spirits"},           {2, "Liqueurs"},       {3, "Wine and Beer"},
                             {4, "Mixers"},    {5, "Fruit and Garnish"}, {6, "Dairy and Eggs"}, {7, "Other"}};

constexpr SubType kSubTypes[] = {
    {1, 1, "Gin"},
    {2, 1, "Rum"},
    {3, 1, "Tequila"},
    {4, 1, "Vodka"},
    {5, 1, "Whiskey"},
    {6, 1, "Brandy"},
    {7, 1, "Mezcal"},
    {8, 2, "Orange Liqueur"},
    {9, 2, "Coffee Liqueur"},
    {10, 2, "Cream Liqueur"},
    {11, 2, "Herbal Liqueur"},
    {12, 2, "Fruit Liqueur"},
    {13, 2, "Nut Liqueur"},
    {14, 2, "Bitters"},
    {15, 3, "Vermouth"},
    {16, 3, "Sparkling Wine"},
    {17, 3, "Wine"},
    {18, 3, "Beer"},
    {19, 3, "Fortified Wine"},
    {20, 4, "Juice"},
    {21, 4, "Soda"},
    {22, 4, "Syrup"},
    {23, 4, "Water"},
    {24, 5, "Fruit"},
    {25, 5, "Herb"},
    {26, 5, "Spice"},
    {27, 6, "Cream"},
    {28, 6, "Egg"},
};

// The common bases first: they are drawn most often.
constexpr IngredientBase kBases[] = {
    {"Vodka", 1, 4, Use::Spirit, "1 L bottle", 33.8, 1499, 3999},
    {"Lime Juice", 4, 20, Use::Juice, "1 L bottle", 33.8, 349, 799},
    {"Gin", 1, 1, Use::Spirit, "750 ml bottle", 25.4, 1599, 4499},
    {"Light Rum", 1, 2, Use::Spirit, "750 ml bottle", 25.4, 1199, 2999},
    {"Simple Syrup", 4, 22, Use::Syrup, "1 L bottle", 33.8, 299, 899},
    {"Triple Sec", 2, 8, Use::Modifier, "750 ml bottle", 25.4, 899, 2499},
    {"Lemon Juice", 4, 20, Use::Juice, "1 L bottle", 33.8, 349, 799},
    {"Blanco Tequila", 1, 3, Use::Spirit, "750 ml bottle", 25.4, 1999, 5999},
    {"Bourbon Whiskey", 1, 5, Use::Spirit, "750 ml bottle", 25.4, 1999, 5499},
    {"Orange Juice", 4, 20, Use::Juice, "64 oz carton", 64, 299, 699},
    {"Club Soda", 4, 21, Use::Lengthener, "1 L bottle", 33.8, 99, 249},
    {"Cranberry Juice", 4, 20, Use::Juice, "64 oz carton", 64, 299, 599},
    {"Dark Rum", 1, 2, Use::Spirit, "750 ml bottle", 25.4, 1499, 3999},
    {"Sweet Vermouth", 3, 15, Use::Modifier, "750 ml bottle", 25.4, 899, 2999},
    {"Dry Vermouth", 3, 15, Use::Modifier, "750 ml bottle", 25.4, 899, 2999},
    {"Aromatic Bitters", 2, 14, Use::Bitters, "4 oz bottle", 4, 699, 1299},
    {"Pineapple Juice", 4, 20, Use::Juice, "46 oz can", 46, 249, 499},
    {"Cola", 4, 21, Use::Lengthener, "2 L bottle", 67.6, 129, 299},
    {"Tonic Water", 4, 21, Use::Lengthener, "1 L bottle", 33.8, 149, 399},
    {"Grenadine", 4, 22, Use::Syrup, "750 ml bottle", 25.4, 299, 699},
    {"Lime", 5, 24, Use::Fruit, "each", 1, 25, 60},
    {"Coffee Liqueur", 2, 9, Use::Modifier, "750 ml bottle", 25.4, 1599, 2999},
    {"Amaretto", 2, 13, Use::Modifier, "750 ml bottle", 25.4, 1599, 3299},
    {"Ginger Beer", 4, 21, Use::Lengthener, "12 oz bottle", 12, 99, 249},
    {"Mint", 5, 25, Use::Herb, "bunch", 20, 149, 299},
    {"Spiced Rum", 1, 2, Use::Spirit, "750 ml bottle", 25.4, 1499, 2999},
    {"Rye Whiskey", 1, 5, Use::Spirit, "750 ml bottle", 25.4, 2499, 5999},
    {"Lemon", 5, 24, Use::Fruit, "each", 1, 30, 70},
    {"Heavy Cream", 6, 27, Use::Dairy, "1 qt carton", 32, 349, 599},
    {"Irish Cream", 2, 10, Use::Modifier, "750 ml bottle", 25.4, 1899, 3299},
    {"Champagne", 3, 16, Use::Sparkling, "750 ml bottle", 25.4, 2999, 8999},
    {"Scotch Whisky", 1, 5, Use::Spirit, "750 ml bottle", 25.4, 2999, 8999},
    {"Orange", 5, 24, Use::Fruit, "each", 1, 50, 110},
    {"Cognac", 1, 6, Use::Spirit, "750 ml bottle", 25.4, 3499, 9999},
    {"Peach Schnapps", 2, 12, Use::Modifier, "750 ml bottle", 25.4, 999, 1999},
    {"Ginger Ale", 4, 21, Use::Lengthener, "2 L bottle", 67.6, 129, 299},
    {"Grapefruit Juice", 4, 20, Use::Juice, "1 L bottle", 33.8, 299, 599},
    {"Blue Curacao", 2, 8, Use::Modifier, "750 ml bottle", 25.4, 999, 1999},
    {"Egg White", 6, 28, Use::Egg, "dozen", 12, 299, 599},
    {"Orgeat", 4, 22, Use::Syrup, "750 ml bottle", 25.4, 899, 1699},
    {"Honey Syrup", 4, 22, Use::Syrup, "1 L bottle", 33.8, 599, 1199},
    {"Maraschino Cherry", 5, 24, Use::Fruit, "jar of 50", 50, 499, 999},
    {"Coconut Rum", 1, 2, Use::Spirit, "750 ml bottle", 25.4, 1299, 2499},
    {"Reposado Tequila", 1, 3, Use::Spirit, "750 ml bottle", 25.4, 2499, 6999},
    {"Prosecco", 3, 16, Use::Sparkling, "750 ml bottle", 25.4, 1199, 2499},
    {"Orange Bitters", 2, 14, Use::Bitters, "4 oz bottle", 4, 699, 1299},
    {"Cherry Liqueur", 2, 12, Use::Modifier, "750 ml bottle", 25.4, 1999, 3999},
    {"Herbal Liqueur", 2, 11, Use::Modifier, "750 ml bottle", 25.4, 2499, 4999},
    {"Water", 4, 23, Use::Lengthener, "1 gallon jug", 128, 0, 0},
    {"Ice", 0, 0, Use::Ice, "bag", 0, 199, 399},
    {"Lemon-Lime Soda", 4, 21, Use::Lengthener, "2 L bottle", 67.6, 129, 299},
    {"Tomato Juice", 4, 20, Use::Juice, "46 oz can", 46, 249, 449},
    {"Agave Syrup", 4, 22, Use::Syrup, "750 ml bottle", 25.4, 599, 1199},
    {"Citrus Vodka", 1, 4, Use::Spirit, "750 ml bottle", 25.4, 1499, 2999},
    {"Vanilla Vodka", 1, 4, Use::Spirit, "750 ml bottle", 25.4, 1499, 2999},
    {"Irish Whiskey", 1, 5, Use::Spirit, "750 ml bottle", 25.4, 2499, 4999},
    {"Apple Brandy", 1, 6, Use::Spirit, "750 ml bottle", 25.4, 1999, 3999},
    {"Mezcal", 1, 7, Use::Spirit, "750 ml bottle", 25.4, 3499, 7999},
    {"Pisco", 1, 6, Use::Spirit, "750 ml bottle", 25.4, 2499, 4499},
    {"Overproof Rum", 1, 2, Use::Spirit, "750 ml bottle", 25.4, 1999, 3499},
    {"Old Tom Gin", 1, 1, Use::Spirit, "750 ml bottle", 25.4, 2499, 4499},
    {"Orange Curacao", 2, 8, Use::Modifier, "750 ml bottle", 25.4, 1999, 3499},
    {"Anise Liqueur", 2, 11, Use::Modifier, "750 ml bottle", 25.4, 1999, 3999},
    {"Creme de Menthe", 2, 11, Use::Modifier, "750 ml bottle", 25.4, 999, 1999},
    {"Creme de Cacao", 2, 12, Use::Modifier, "750 ml bottle", 25.4, 999, 1999},
    {"Hazelnut Liqueur", 2, 13, Use::Modifier, "750 ml bottle", 25.4, 1999, 3499},
    {"Melon Liqueur", 2, 12, Use::Modifier, "750 ml bottle", 25.4, 1499, 2499},
    {"Banana Liqueur", 2, 12, Use::Modifier, "750 ml bottle", 25.4, 999, 1999},
    {"Raspberry Liqueur", 2, 12, Use::Modifier, "750 ml bottle", 25.4, 1999, 3499},
    {"Apricot Brandy", 2, 12, Use::Modifier, "750 ml bottle", 25.4, 1499, 2999},
    {"Red Wine", 3, 17, Use::Modifier, "750 ml bottle", 25.4, 899, 2999},
    {"White Wine", 3, 17, Use::Modifier, "750 ml bottle", 25.4, 899, 2999},
    {"Lager", 3, 18, Use::Beer, "12 oz bottle", 12, 99, 299},
    {"Stout", 3, 18, Use::Beer, "12 oz bottle", 12, 149, 399},
    {"Dry Sherry", 3, 19, Use::Modifier, "750 ml bottle", 25.4, 1299, 2499},
    {"Ruby Port", 3, 19, Use::Modifier, "750 ml bottle", 25.4, 1299, 2999},
    {"Coconut Cream", 4, 22, Use::Syrup, "15 oz can", 15, 249, 499},
    {"Milk", 6, 27, Use::Dairy, "1 gallon jug", 128, 299, 499},
    {"Whole Egg", 6, 28, Use::Egg, "dozen", 12, 299, 599},
    {"Pineapple", 5, 24, Use::Fruit, "each", 8, 299, 499},
    {"Strawberry", 5, 24, Use::Fruit, "pint", 16, 299, 599},
    {"Basil", 5, 25, Use::Herb, "bunch", 20, 199, 349},
    {"Nutmeg", 5, 26, Use::Spice, "jar", 50, 399, 699},
    {"Cinnamon", 5, 26, Use::Spice, "jar", 50, 299, 599},
    {"Salt", 5, 26, Use::Spice, "box", 100, 99, 199},
    {"Sugar Cube", 7, 0, Use::Spice, "box", 100, 249, 449},
    {"Hot Coffee", 7, 0, Use::Lengthener, "pot", 64, 199, 399},
};

// Enough of each for 2,000 ingredients over the bases above.
constexpr const char *kBrands[] = {"Aldergrove",   "Blackwater",  "Copperhill",  "Dunmore",   "Elkhorn",
                                   "Foxglove",     "Greystone",   "Harbourside", "Ironbark",  "Juniper Hill",
                                   "Kestrel",      "Larkspur",    "Millbrook",   "Northgate", "Oakhaven",
                                   "Pennywhistle", "Quarry Lane", "Redfern",     "Saltmarsh", "Thistledown",
                                   "Upland",       "Valemont",    "Westbury",    "Yarrow",    "Zephyr Bay"};

constexpr const char *kQualifiers[] = {
    "Fresh", "Organic",   "Bottled",     "Premium",   "Homemade", "Frozen",  "Chilled", "Imported", "Local",
    "Wild",  "Sweetened", "Unsweetened", "Spiced",    "Smoked",   "Blood",   "Pink",    "Golden",   "Light",
    "Extra", "Classic",   "Artisan",     "Farmhouse", "Reserve",  "Natural", "Select"};

constexpr IdName kGlassware[] = {
    {1, "Cocktail Glass"},     {2, "Old-Fashioned Glass"}, {3, "Highball Glass"}, {4, "Collins Glass"},
    {5, "Margarita Glass"},    {6, "Champagne Flute"},     {7, "Shot Glass"},     {8, "Wine Glass"},
    {9, "Hurricane Glass"},    {10, "Pint Glass"},         {11, "Beer Mug"},      {12, "Brandy Snifter"},
    {13, "Cordial Glass"},     {14, "Irish Coffee Mug"},   {15, "Sour Glass"},    {16, "Coupe"},
    {17, "Copper Mug"},        {18, "Tiki Mug"},           {19, "Punch Cup"},     {20, "Parfait Glass"},
    {21, "Pousse Cafe Glass"}, {22, "Julep Cup"},          {23, "Pilsner Glass"}, {24, "Mason Jar"}};

constexpr IdName kCategories[] = {{0, "Unknown / Other"}, {1, "Classic Cocktails"}, {2, "Highballs"},
                                  {3, "Sours"},           {4, "Martinis"},          {5, "Tiki"},
                                  {6, "Shooters"},        {7, "Punches"},           {8, "Hot Drinks"},
                                  {9, "Frozen Drinks"},   {10, "Coolers"},          {11, "Fizzes"},
                                  {12, "Flips"},          {13, "Juleps"},           {14, "Slings"},
                                  {15, "Smashes"},        {16, "Collinses"},        {17, "Cobblers"},
                                  {18, "Daisies"},        {19, "Toddies"},          {20, "Layered Drinks"},
                                  {21, "Dessert Drinks"}, {22, "Beer Drinks"},      {23, "Wine Drinks"},
                                  {24, "Party Drinks"},   {25, "Brunch Drinks"},    {26, "Aperitifs"},
                                  {27, "Digestifs"},      {28, "Holiday Drinks"},   {29, "Low Proof"}};

constexpr IdName kGarnishes[] = {
    {1, "Lime Wedge"},      {2, "Lemon Twist"},    {3, "Olive"},           {4, "Mint Sprig"},
    {5, "Orange Slice"},    {6, "Cherry"},         {7, "Salted Rim"},      {8, "Sugared Rim"},
    {9, "Pineapple Wedge"}, {10, "Orange Twist"},  {11, "Lemon Wheel"},    {12, "Lime Wheel"},
    {13, "Cocktail Onion"}, {14, "Grated Nutmeg"}, {15, "Cinnamon Stick"}, {16, "Celery Stalk"},
    {17, "Whipped Cream"},  {18, "Coffee Beans"},  {19, "Umbrella"},       {20, "Cucumber Slice"}};

constexpr IdName kBuilds[] = {{1, "Shaken"},  {2, "Stirred"}, {3, "Built"},  {4, "Muddled"},
                              {5, "Blended"}, {6, "Layered"}, {7, "Rolled"}, {8, "Thrown"}};

constexpr IdName kRatings[] = {{1, "Not Rated"}, {2, "Fair"}, {3, "Good"}, {4, "Very Good"}, {5, "Excellent"}};

// Every letter begins some first word; the rare letters stand late, so their tabs stay short.
constexpr const char *kFirstWords[] = {
    "Blue",    "Red",      "Golden",   "Midnight", "Tropical", "Black",     "Silver",  "Green",    "Pink",
    "Frozen",  "Royal",    "Sweet",    "Southern", "Island",   "Dark",      "Cherry",  "Summer",   "Wild",
    "Honey",   "Mango",    "Orange",   "Lemon",    "Spiced",   "Velvet",    "Hot",     "Irish",    "French",
    "Sunset",  "Copper",   "Coral",    "Crimson",  "Electric", "Emerald",   "Lucky",   "Jungle",   "Kentucky",
    "Lime",    "Monkey",   "Navy",     "Old",      "Peach",    "Ruby",      "Scarlet", "Smoky",    "Tiger",
    "White",   "Amber",    "Arctic",   "Autumn",   "Azure",    "Bitter",    "Blood",   "Bronze",   "Cuban",
    "Cosmic",  "Desert",   "Dizzy",    "Double",   "Dragon",   "Evening",   "Eastern", "Fuzzy",    "Flying",
    "Frosty",  "Grand",    "Ginger",   "Harvest",  "Havana",   "Highland",  "Iced",    "Imperial", "Ivory",
    "Jade",    "Jamaican", "Jolly",    "Kiwi",     "Kingston", "Lavender",  "Lazy",    "Mountain", "Mystic",
    "Mexican", "Naughty",  "Northern", "Nutty",    "Neon",     "Ocean",     "Orchard", "Opal",     "Purple",
    "Pacific", "Paradise", "Polar",    "Rusty",    "Rocky",    "Raspberry", "Stormy",  "Sour",     "Tangerine",
    "Thunder", "Toasted",  "Twisted",  "Vanilla",  "Violet",   "Venetian",  "Vintage", "Winter",   "Windy",
    "Wicked",  "Yellow",   "Yankee",   "Atomic",   "Bamboo",   "Dusty",     "Easy",    "Gypsy",    "Indigo",
    "Jasmine", "Kaiser",   "Lonely",   "Olympic",  "Union",    "Urban",     "Uptown",  "Ultra",    "Young",
    "Yucatan", "Zesty",    "Zombie",   "Zen",      "Quiet",    "Quince",    "Queen's", "Quarter",  "Zanzibar",
    "Xanadu",  "Xtra",     "Xeres"};

constexpr const char *kSecondWords[] = {
    "Lagoon",    "Breeze",    "Sunrise", "Mule",    "Kiss",    "Dream",   "Storm",   "Punch",      "Fizz",
    "Sour",      "Smash",     "Sling",   "Cooler",  "Martini", "Collins", "Rickey",  "Julep",      "Daiquiri",
    "Margarita", "Mist",      "Bomb",    "Shot",    "Slammer", "Delight", "Passion", "Temptation", "Tonic",
    "Spritz",    "Flip",      "Nog",     "Toddy",   "Buck",    "Cobbler", "Crusta",  "Daisy",      "Fix",
    "Highball",  "Swizzle",   "Hammer",  "Rose",    "Tango",   "Twist",   "Wave",    "Whisper",    "Wind",
    "Wonder",    "Angel",     "Bandit",  "Baron",   "Bishop",  "Blossom", "Bramble", "Bullet",     "Cactus",
    "Cannon",    "Cloud",     "Comet",   "Crown",   "Dagger",  "Devil",   "Diamond", "Duchess",    "Eagle",
    "Eclipse",   "Elixir",    "Falcon",  "Flame",   "Fox",     "Garden",  "Ghost",   "Glacier",    "Goose",
    "Harbor",    "Heart",     "Horizon", "Hound",   "Jewel",   "Jester",  "Kitten",  "Knight",     "Lantern",
    "Legend",    "Lightning", "Lion",    "Lotus",   "Meadow",  "Mirage",  "Monsoon", "Moon",       "Nectar",
    "Nomad",     "Oasis",     "Orchid",  "Panther", "Parrot",  "Pearl",   "Phoenix", "Pilot",      "Prince",
    "Queen",     "Quake",     "Rainbow", "Raven",   "Reef",    "Rider",   "River",   "Rocket",     "Saint",
    "Sailor",    "Serpent",   "Shadow",  "Shark",   "Sky",     "Spark",   "Spirit",  "Star",       "Sun",
    "Swan",      "Thorn",     "Tide",    "Tornado", "Trader",  "Tulip",   "Typhoon", "Unicorn",    "Valley",
    "Viper",     "Volcano",   "Voodoo",  "Warrior", "Widow",   "Wolf",    "Yeti",    "Zephyr"};

constexpr const char *kThirdWords[] = {
    "Royale", "Special", "Deluxe",  "Fizz",    "Cooler",   "Punch",    "Sour",    "Supreme", "Twist",    "Spritz",
    "No. 2",  "No. 3",   "Reserve", "Classic", "Frappe",   "Highball", "Shooter", "Slush",   "Float",    "Cocktail",
    "Sling",  "Smash",   "Flip",    "Martini", "Nightcap", "Revival",  "Express", "Affair",  "Surprise", "Swizzle"};

constexpr const char *kLeadingNumbers[] = {"3", "7", "10", "12", "24", "42", "57", "99", "151", "1920s", "49er"};

constexpr const char *kMethods[] = {"Shake with ice and strain into a chilled glass.",
                                    "Stir with ice and strain.",
                                    "Build over ice in the glass.",
                                    "Muddle the fruit and sugar, add the rest and shake hard.",
                                    "Blend with a cup of crushed ice until smooth.",
                                    "Layer carefully over the back of a spoon.",
                                    "Dry shake the egg white first, then shake again with ice.",
                                    "Combine in a warmed mug and stir.",
                                    "Roll between two tins and pour unstrained.",
                                    "Pour the spirits over ice, then top with the mixer."};

constexpr const char *kServes[] = {"Garnish and serve at once.",
                                   "Serve with a straw.",
                                   "Top with a splash of soda if you like it longer.",
                                   "Express the peel over the top and drop it in.",
                                   "Serve straight up.",
                                   "Serve on the rocks.",
                                   "Dust with nutmeg before serving."};

constexpr const char *kComments[] = {"A house favourite.",    "Good for parties: scales up well in a punch bowl.",
                                     "Use fresh juice only.", "Ask the guest how sweet they like it.",
                                     "Popular in summer.",    "Serve in a frozen glass when there is time."};

} // namespace

std::span<const IngredientBase> ingredientBases()
{
    return kBases;
}
std::span<const char *const> brands()
{
    return kBrands;
}
std::span<const char *const> qualifiers()
{
    return kQualifiers;
}
std::span<const IdName> ingredientTypes()
{
    return kTypes;
}
std::span<const SubType> ingredientSubTypes()
{
    return kSubTypes;
}
std::span<const IdName> glassware()
{
    return kGlassware;
}
std::span<const IdName> categories()
{
    return kCategories;
}
std::span<const IdName> garnishes()
{
    return kGarnishes;
}
std::span<const IdName> builds()
{
    return kBuilds;
}
std::span<const IdName> ratings()
{
    return kRatings;
}
std::span<const char *const> firstWords()
{
    return kFirstWords;
}
std::span<const char *const> secondWords()
{
    return kSecondWords;
}
std::span<const char *const> thirdWords()
{
    return kThirdWords;
}
std::span<const char *const> leadingNumbers()
{
    return kLeadingNumbers;
}
std::span<const char *const> methodSentences()
{
    return kMethods;
}
std::span<const char *const> serveSentences()
{
    return kServes;
}
std::span<const char *const> comments()
{
    return kComments;
}

} // namespace GeneratorVocabulary
