#include "core/units/UnitRows.h"

#include <numbers>

// Sources, by the short names that the rows use; a row without one is a unit of the SI with its prefix, or a plain
// multiple of the row that its quotient or product names.
//
//   SI       BIPM, The International System of Units, 9th edition, with the prefixes of its table 7 and the units of
//            its table 8
//   SP 811   NIST Special Publication 811 (2008), appendix B
//   HB 44    NIST Handbook 44, appendix C: U.S. customary measures, after the yard and pound agreement of 1959
//   WMA      Weights and Measures Act 1985 (United Kingdom), schedule 1: imperial measures
//   IAU      resolutions of the International Astronomical Union: 2012 B2 (astronomical unit), 2015 B2 (parsec)
//
// Spellings ignore case, so units that differ in case alone have explicit names: MVOLT, MFARAD, MHENRY, MBIT.
// Customary measures without a prefix are those of the U.S.

namespace {

using std::numbers::pi;

// clang-format off

constexpr double standardGravity = 9.80665;                      // m/s2, SP 811 (3rd CGPM, 1901)
constexpr double poundForce = 4.4482216152605;                   // N, SP 811: 0.45359237 kg at standard gravity
constexpr double cubicFoot = 28.316846592;                       // L, HB 44
constexpr double gallon = 3.785411784;                           // L, HB 44: 231 cubic inches
constexpr double imperialGallon = 4.54609;                       // L, WMA

constexpr UnitRow length[] = { // base: metre
    {u"PM",      1e-12,             u"PICOMETER, PICOMETERS, PICOMETRE, PICOMETRES"},
    {u"NM",      1e-9,              u"NANOMETER, NANOMETERS, NANOMETRE, NANOMETRES"},
    {u"UM",      1e-6,              u"µM, MICROMETER, MICROMETERS, MICROMETRE, MICROMETRES, MICRON, MICRONS"},
    {u"MM",      0.001,             u"MILLIMETER, MILLIMETERS, MILLIMETRE, MILLIMETRES"},
    {u"CM",      0.01,              u"CENTIMETER, CENTIMETERS, CENTIMETRE, CENTIMETRES"},
    {u"DM",      0.1,               u"DECIMETER, DECIMETERS, DECIMETRE, DECIMETRES"},
    {u"M",       1,                 u"METER, METERS, METRE, METRES"},
    {u"DAM",     10,                u"DECAMETER, DECAMETERS, DECAMETRE, DECAMETRES, DEKAMETER, DEKAMETERS"},
    {u"HM",      100,               u"HECTOMETER, HECTOMETERS, HECTOMETRE, HECTOMETRES"},
    {u"KM",      1000,              u"KILOMETER, KILOMETERS, KILOMETRE, KILOMETRES"},
    {u"MIL",     0.0000254,         u"MILS, THOU"},                                    // SP 811: 0.001 in
    {u"IN",      0.0254,            u"INCH, INCHES"},                                  // HB 44
    {u"FT",      0.3048,            u"FOOT, FEET"},                                    // HB 44
    {u"YD",      0.9144,            u"YDS, YARD, YARDS"},                              // HB 44
    {u"ROD",     5.0292,            u"RODS"},                                          // HB 44: 16.5 ft
    {u"CHAIN",   20.1168,           u"CHAINS"},                                        // HB 44: 66 ft
    {u"FURLONG", 201.168,           u"FURLONGS"},                                      // HB 44: 660 ft
    {u"MI",      1609.344,          u"MILE, MILES, STATUTE MILE, STATUTE MILES"},                 // HB 44: 5280 ft
    {u"NMI",     1852,              u"NAUTICAL MILE, NAUTICAL MILES, NMILE, NMILES"},  // SP 811
    {u"AU",      149597870700,      u"ASTRONOMICAL UNIT, ASTRONOMICAL UNITS"},         // IAU, SI
    {u"LY",      9460730472580800.0, u"LIGHT YEAR, LIGHT YEARS, LIGHTYEAR, LIGHTYEARS"}, // 299792458 m/s for 365.25 d
    {u"PC",      149597870700.0 * 648000 / pi, u"PARSEC, PARSECS"},                    // IAU
};

constexpr UnitRow area[] = { // base: square metre
    {u"MM2",     1e-6,              u"MM^2, MM², SQ MM, SQUARE MILLIMETER, SQUARE MILLIMETERS, SQUARE MILLIMETRE, SQUARE MILLIMETRES"},
    {u"CM2",     1e-4,              u"CM^2, CM², SQ CM, SQUARE CENTIMETER, SQUARE CENTIMETERS, SQUARE CENTIMETRE, SQUARE CENTIMETRES"},
    {u"M2",      1,                 u"M^2, M², SQ M, SQUARE METER, SQUARE METERS, SQUARE METRE, SQUARE METRES"},
    {u"KM2",     1e6,               u"KM^2, KM², SQ KM, SQUARE KILOMETER, SQUARE KILOMETERS, SQUARE KILOMETRE, SQUARE KILOMETRES"},
    {u"IN2",     0.00064516,        u"IN^2, IN², SQ IN, SQUARE INCH, SQUARE INCHES"},  // HB 44
    {u"FT2",     0.09290304,        u"FT^2, FT², SQ FT, SQUARE FOOT, SQUARE FEET"},    // HB 44
    {u"YD2",     0.83612736,        u"YD^2, YD², SQ YD, SQUARE YARD, SQUARE YARDS"},   // HB 44
    {u"ACRE",    4046.8564224,      u"ACRES"},                                         // 43560 ft2, international foot
    {u"HECTARE", 10000,             u"HECTARES, HA"},                                  // SI
    {u"MI2",     2589988.110336,    u"MI^2, MI², SQ MI, SQUARE MILE, SQUARE MILES"},   // HB 44
};

constexpr UnitRow volume[] = { // base: litre
    {u"MM3",     1e-6,              u"MM^3, MM³, CUBIC MILLIMETER, CUBIC MILLIMETERS, CUBIC MILLIMETRE, CUBIC MILLIMETRES"},
    {u"CM3",     0.001,             u"CM^3, CM³, CC, CUBIC CENTIMETER, CUBIC CENTIMETERS, CUBIC CENTIMETRE, CUBIC CENTIMETRES"},
    {u"M3",      1000,              u"M^3, M³, CU M, CUBIC METER, CUBIC METERS, CUBIC METRE, CUBIC METRES"},
    {u"IN3",     0.016387064,       u"IN^3, IN³, CU IN, CUBIC INCH, CUBIC INCHES"},    // HB 44
    {u"FT3",     cubicFoot,         u"FT^3, FT³, CU FT, CUBIC FOOT, CUBIC FEET"},
    {u"YD3",     764.554857984,     u"YD^3, YD³, CU YD, CUBIC YARD, CUBIC YARDS"},     // HB 44
    {u"UL",      1e-6,              u"µL, MICROLITER, MICROLITERS, MICROLITRE, MICROLITRES"},
    {u"ML",      0.001,             u"MILLILITER, MILLILITERS, MILLILITRE, MILLILITRES"},
    {u"CL",      0.01,              u"CENTILITER, CENTILITERS, CENTILITRE, CENTILITRES"},
    {u"DL",      0.1,               u"DECILITER, DECILITERS, DECILITRE, DECILITRES"},
    {u"L",       1,                 u"LITER, LITERS, LITRE, LITRES"},
    {u"TSP",     0.00492892159375,  u"TEASPOON, TEASPOONS, US TEASPOON, US TEASPOONS"},       // HB 44: 1/768 gal
    {u"TBSP",    0.01478676478125,  u"TABLESPOON, TABLESPOONS, US TABLESPOON, US TABLESPOONS"}, // HB 44: 1/256 gal
    {u"FLOZ",    0.0295735295625,   u"FL OZ, FLUID OUNCE, FLUID OUNCES, US FL OZ, US FLUID OUNCE, US FLUID OUNCES"}, // HB 44: 1/128 gal
    {u"CUP",     0.2365882365,      u"CUPS, US CUP, US CUPS"},                         // HB 44: 1/16 gal
    {u"PT",      0.473176473,       u"PINT, PINTS, US PINT, US PINTS"},                // HB 44: 1/8 gal
    {u"QT",      0.946352946,       u"QUART, QUARTS, US QUART, US QUARTS"},            // HB 44: 1/4 gal
    {u"GAL",     gallon,            u"GALLON, GALLONS, US GALLON, US GALLONS"},
    {u"METRICCUP", 0.25,            u"METRIC CUP, METRIC CUPS"},                       // 250 mL, kitchen measure
    {u"IMPFLOZ", 0.0284130625,      u"IMP FL OZ, IMPERIAL FLUID OUNCE, IMPERIAL FLUID OUNCES, UK FLUID OUNCE, UK FLUID OUNCES"}, // WMA: 1/160 gal
    {u"IMPPT",   0.56826125,        u"IMP PT, IMPERIAL PINT, IMPERIAL PINTS, UK PINT, UK PINTS"},     // WMA: 1/8 gal
    {u"IMPQT",   1.1365225,         u"IMP QT, IMPERIAL QUART, IMPERIAL QUARTS, UK QUART, UK QUARTS"}, // WMA: 1/4 gal
    {u"IMPGAL",  imperialGallon,    u"IMPERIAL GALLON, IMPERIAL GALLONS, UK GALLON, UK GALLONS, IMP GAL"},
};

constexpr UnitRow mass[] = { // base: kilogram
    {u"UG",      1e-9,              u"µG, MCG, MICROGRAM, MICROGRAMS"},
    {u"MG",      1e-6,              u"MILLIGRAM, MILLIGRAMS"},
    {u"G",       0.001,             u"GRAM, GRAMS, GRAMME, GRAMMES"},
    {u"KG",      1,                 u"KILO, KILOGRAM, KILOGRAMS, KILOGRAMME, KILOGRAMMES"},
    {u"TONNE",   1000,              u"TONNES, T, METRIC TON, METRIC TONS, METRIC TONNE, METRIC TONNES"}, // SI
    {u"GR",      0.00006479891,     u"GRAIN, GRAINS"},                                 // HB 44: 1/7000 lb
    {u"DRAM",    0.0017718451953125, u"DRAMS"},                                    // HB 44: 1/256 lb
    {u"OZ",      0.028349523125,    u"OUNCE, OUNCES"},                                 // HB 44: 1/16 lb
    {u"LB",      0.45359237,        u"LBS, POUND, POUNDS"},                            // HB 44
    {u"STONE",   6.35029318,        u"STONES, ST"},                                    // WMA: 14 lb
    {u"USTON",   907.18474,         u"US TON, US TONS, SHORT TON, SHORT TONS"},        // HB 44: 2000 lb
    {u"LONGTON", 1016.0469088,      u"LONG TON, LONG TONS, UK TON, UK TONS"}, // HB 44: 2240 lb
};

constexpr UnitRow temperature[] = { // base: kelvin
    {u"K",       1,                 u"KELVIN, KELVINS"},
    {u"C",       1,                 u"CELSIUS, DEG C, DEGREES C, DEGREE C, DEGREES CELSIUS, DEGREE CELSIUS, °C, CENTIGRADE", 273.15}, // SI
    {u"F",       5.0 / 9,           u"FAHRENHEIT, DEG F, DEGREES F, DEGREE F, DEGREES FAHRENHEIT, DEGREE FAHRENHEIT, °F", 255.3722222222222}, // SP 811: 459.67 5/9
    {u"R",       5.0 / 9,           u"RANKINE, DEG R, DEGREES R, °R, DEGREE R, DEGREES RANKINE, DEGREE RANKINE"}, // SP 811
};

constexpr UnitRow time[] = { // base: second
    {u"NS",      1e-9,              u"NANOSECOND, NANOSECONDS, NSEC"},
    {u"US",      1e-6,              u"µS, MICROSECOND, MICROSECONDS, USEC"},
    {u"MS",      0.001,             u"MILLISECOND, MILLISECONDS, MSEC"},
    {u"SEC",     1,                 u"S, SECS, SECOND, SECONDS"},
    {u"MIN",     60,                u"MINS, MINUTE, MINUTES"},                         // SI
    {u"HR",      3600,              u"H, HRS, HOUR, HOURS"},                           // SI
    {u"DAY",     86400,             u"DAYS"},                                          // SI
    {u"WEEK",    604800,            u"WEEKS, WK, WKS"},                                // 7 d
    {u"FORTNIGHT", 1209600,         u"FORTNIGHTS"},                                    // 14 d
    {u"YEAR",    31557600,          u"YEARS, YR, YRS, JULIAN YEAR, JULIAN YEARS"},     // 365.25 d
};

constexpr UnitRow speed[] = { // base: metre per second
    {u"MPS",     1,                 u"M/S, METER PER SECOND, METERS PER SECOND, METRE PER SECOND, METRES PER SECOND"},
    {u"KPH",     1000.0 / 3600,     u"KMH, KM/H, KMPH, KILOMETER PER HOUR, KILOMETERS PER HOUR, KILOMETRE PER HOUR, KILOMETRES PER HOUR"},
    {u"MPH",     0.44704,           u"MI/H, MILE PER HOUR, MILES PER HOUR"},           // SP 811
    {u"FPS",     0.3048,            u"FT/S, FOOT PER SECOND, FEET PER SECOND"},        // SP 811
    {u"FPM",     0.00508,           u"FT/MIN, FOOT PER MINUTE, FEET PER MINUTE"},      // SP 811
    {u"KNOT",    1852.0 / 3600,     u"KNOTS, KT, KTS"},                                // SP 811: nautical mile per hour
};

constexpr UnitRow acceleration[] = { // base: metre per second squared
    {u"MPS2",    1,                 u"M/S2, M/S^2, M/S², METER PER SECOND SQUARED, METERS PER SECOND SQUARED, METRE PER SECOND SQUARED, METRES PER SECOND SQUARED"},
    {u"FPS2",    0.3048,            u"FT/S2, FT/S^2, FT/S², FOOT PER SECOND SQUARED, FEET PER SECOND SQUARED"}, // SP 811
    {u"GFORCE",  standardGravity,   u"G FORCE, G-FORCE, STANDARD GRAVITY"},
};

constexpr UnitRow force[] = { // base: newton
    {u"N",       1,                 u"NEWTON, NEWTONS"},
    {u"KN",      1000,              u"KILONEWTON, KILONEWTONS"},
    {u"MN",      1e6,               u"MEGANEWTON, MEGANEWTONS"},
    {u"DYNE",    1e-5,              u"DYNES, DYN"},                                    // SP 811
    {u"LBF",     poundForce,        u"POUND FORCE, POUNDS FORCE, POUND-FORCE"},
    {u"KGF",     standardGravity,   u"KILOGRAM FORCE, KILOGRAMS FORCE, KILOGRAM-FORCE"}, // SP 811
};

constexpr UnitRow pressure[] = { // base: pascal
    {u"PA",      1,                 u"PASCAL, PASCALS"},
    {u"HPA",     100,               u"HECTOPASCAL, HECTOPASCALS"},
    {u"KPA",     1000,              u"KILOPASCAL, KILOPASCALS"},
    {u"MPA",     1e6,               u"MEGAPASCAL, MEGAPASCALS"},
    {u"BAR",     1e5,               u"BARS"},                                          // SP 811
    {u"MBAR",    100,               u"MILLIBAR, MILLIBARS"},
    {u"ATM",     101325,            u"ATMOSPHERE, ATMOSPHERES, STANDARD ATMOSPHERE"}, // SP 811
    {u"PSI",     6894.757293168,    u"POUNDS PER SQUARE INCH, POUND PER SQUARE INCH, LB/IN2"}, // SP 811: lbf/in2, to 13 digits
    {u"TORR",    101325.0 / 760,    u"TORRS"},                                         // SP 811
    {u"MMHG",    133.322387415,     u"MM HG, MILLIMETER OF MERCURY, MILLIMETERS OF MERCURY, MILLIMETRE OF MERCURY, MILLIMETRES OF MERCURY"}, // SP 811: 13595.1 kg/m3 at standard gravity
    {u"INHG",    3386.388640341,    u"IN HG, INCH OF MERCURY, INCHES OF MERCURY, INCHES MERCURY"}, // 25.4 mmHg
};

constexpr UnitRow energy[] = { // base: joule
    {u"J",       1,                 u"JOULE, JOULES"},
    {u"KJ",      1000,              u"KILOJOULE, KILOJOULES"},
    {u"MJ",      1e6,               u"MEGAJOULE, MEGAJOULES"},
    {u"GJ",      1e9,               u"GIGAJOULE, GIGAJOULES"},
    {u"CAL",     4.184,             u"CALORIE, CALORIES"},                             // SP 811: thermochemical
    {u"KCAL",    4184,              u"KILOCALORIE, KILOCALORIES, FOOD CALORIE, FOOD CALORIES"},
    {u"WH",      3600,              u"WATT HOUR, WATT HOURS, WATT-HOUR"},
    {u"KWH",     3.6e6,             u"KILOWATT HOUR, KILOWATT HOURS, KILOWATT-HOUR"},
    {u"MWH",     3.6e9,             u"MEGAWATT HOUR, MEGAWATT HOURS, MEGAWATT-HOUR"},
    {u"BTU",     1055.05585262,     u"BTUS, BRITISH THERMAL UNIT, BRITISH THERMAL UNITS"}, // SP 811: International Table
    {u"FTLB",    1.3558179483314004, u"FT LB, FT-LB, FOOT POUND, FOOT POUNDS, FOOT-POUND, FOOT-POUNDS, FT LBF"}, // SP 811: 0.3048 m lbf
    {u"ERG",     1e-7,              u"ERGS"},                                          // SP 811
    {u"EV",      1.602176634e-19,   u"ELECTRONVOLT, ELECTRONVOLTS, ELECTRON VOLT, ELECTRON VOLTS"}, // SI
};

constexpr UnitRow power[] = { // base: watt
    {u"W",       1,                 u"WATT, WATTS"},
    {u"KW",      1000,              u"KILOWATT, KILOWATTS"},
    {u"MW",      1e6,               u"MEGAWATT, MEGAWATTS"},
    {u"GW",      1e9,               u"GIGAWATT, GIGAWATTS"},
    {u"HP",      550 * 0.3048 * poundForce, u"HORSEPOWER, MECHANICAL HORSEPOWER"},     // SP 811: 550 ft lbf/s
    {u"MHP",     75 * standardGravity, u"METRIC HORSEPOWER, PS HORSEPOWER, PS"},       // SP 811: 75 m kgf/s
};

constexpr UnitRow torque[] = { // base: newton metre
    {u"NMTR",    1,                 u"N·M, NEWTON METER, NEWTON METERS, NEWTON METRE, NEWTON METRES, NEWTON-METER"},
    {u"KNM",     1000,              u"KN·M, KILONEWTON METER, KILONEWTON METERS, KILONEWTON METRE, KILONEWTON METRES"},
    {u"FTLBT",   1.3558179483314004, u"LB-FT, POUND FOOT, POUND FEET"}, // SP 811: 0.3048 m lbf
    {u"INLBT",   0.1129848290276167, u"LB-IN, POUND INCH, POUND INCHES, INCH POUND, INCH POUNDS"}, // SP 811: 0.0254 m lbf
};

constexpr UnitRow angle[] = { // base: radian
    {u"RAD",     1,                 u"RADIAN, RADIANS"},
    {u"DEG",     pi / 180,          u"DEGREE, DEGREES, °"},                      // SI
    {u"GRAD",    pi / 200,          u"GRADIAN, GRADIANS, GON"},           // SP 811
    {u"TURN",    2 * pi,            u"TURNS, REV, REVS, REVOLUTION, REVOLUTIONS"},
    {u"ARCMIN",  pi / 10800,        u"ARCMINUTE, ARCMINUTES, ARC MINUTE, ARC MINUTES"}, // SI
    {u"ARCSEC",  pi / 648000,       u"ARCSECOND, ARCSECONDS, ARC SECOND, ARC SECONDS"}, // SI
};

constexpr UnitRow frequency[] = { // base: hertz
    {u"HZ",      1,                 u"HERTZ, CYCLE PER SECOND, CYCLES PER SECOND"},
    {u"KHZ",     1000,              u"KILOHERTZ"},
    {u"MHZ",     1e6,               u"MEGAHERTZ"},
    {u"GHZ",     1e9,               u"GIGAHERTZ"},
    {u"THZ",     1e12,              u"TERAHERTZ"},
    {u"RPS",     1,                 u"REV/S, REVOLUTION PER SECOND, REVOLUTIONS PER SECOND"},
    {u"RPM",     1.0 / 60,          u"REV/MIN, REVOLUTION PER MINUTE, REVOLUTIONS PER MINUTE"},
};

constexpr double kibi = 1024; // IEC 80000-13, and here for the names of storage without "bi" as well
constexpr double mebi = kibi * 1024;
constexpr double gibi = mebi * 1024;
constexpr double tebi = gibi * 1024;
constexpr double pebi = tebi * 1024;

constexpr UnitRow data[] = { // base: bit
    {u"BIT",     1,                 u"BITS"},
    {u"BYTE",    8,                 u"BYTES"},
    {u"KBIT",    kibi,              u"KILOBIT, KILOBITS"},
    {u"MBIT",    mebi,              u"MEGABIT, MEGABITS"},
    {u"GBIT",    gibi,              u"GIGABIT, GIGABITS"},
    {u"TBIT",    tebi,              u"TERABIT, TERABITS"},
    {u"KB",      8 * kibi,          u"KILOBYTE, KILOBYTES"},
    {u"MB",      8 * mebi,          u"MEGABYTE, MEGABYTES"},
    {u"GB",      8 * gibi,          u"GIGABYTE, GIGABYTES"},
    {u"TB",      8 * tebi,          u"TERABYTE, TERABYTES"},
    {u"PB",      8 * pebi,          u"PETABYTE, PETABYTES"},
    {u"KIBIT",   kibi,              u"KIBIBIT, KIBIBITS"},
    {u"MIBIT",   mebi,              u"MEBIBIT, MEBIBITS"},
    {u"GIBIT",   gibi,              u"GIBIBIT, GIBIBITS"},
    {u"KIB",     8 * kibi,          u"KIBIBYTE, KIBIBYTES"},
    {u"MIB",     8 * mebi,          u"MEBIBYTE, MEBIBYTES"},
    {u"GIB",     8 * gibi,          u"GIBIBYTE, GIBIBYTES"},
    {u"TIB",     8 * tebi,          u"TEBIBYTE, TEBIBYTES"},
    {u"PIB",     8 * pebi,          u"PEBIBYTE, PEBIBYTES"},
};

constexpr UnitRow dataRate[] = { // base: bit per second; decimal, as line rates are
    {u"BPS",     1,                 u"BIT/S, BIT PER SECOND, BITS PER SECOND"},
    {u"KBPS",    1e3,               u"KBIT/S, KILOBIT PER SECOND, KILOBITS PER SECOND"},
    {u"MBPS",    1e6,               u"MBIT/S, MEGABIT PER SECOND, MEGABITS PER SECOND"},
    {u"GBPS",    1e9,               u"GBIT/S, GIGABIT PER SECOND, GIGABITS PER SECOND"},
    {u"BYTEPS",  8,                 u"BYTE/S, BYTE PER SECOND, BYTES PER SECOND"},
    {u"KBYTEPS", 8e3,               u"KB/S, KILOBYTE PER SECOND, KILOBYTES PER SECOND"},
    {u"MBYTEPS", 8e6,               u"MB/S, MEGABYTE PER SECOND, MEGABYTES PER SECOND"},
    {u"GBYTEPS", 8e9,               u"GB/S, GIGABYTE PER SECOND, GIGABYTES PER SECOND"},
};

constexpr UnitRow density[] = { // base: kilogram per cubic metre
    {u"KGM3",    1,                 u"KG/M3, KG/M^3, KG/M³, KILOGRAM PER CUBIC METER, KILOGRAMS PER CUBIC METER, KILOGRAM PER CUBIC METRE, KILOGRAMS PER CUBIC METRE"},
    {u"GCM3",    1000,              u"G/CM3, G/CM^3, G/CM³, G/CC, GRAM PER CUBIC CENTIMETER, GRAMS PER CUBIC CENTIMETER, GRAM PER CUBIC CENTIMETRE, GRAMS PER CUBIC CENTIMETRE"},
    {u"GML",     1000,              u"G/ML, GRAM PER MILLILITER, GRAMS PER MILLILITER, GRAM PER MILLILITRE, GRAMS PER MILLILITRE"},
    {u"GL",      1,                 u"G/L, GRAM PER LITER, GRAMS PER LITER, GRAM PER LITRE, GRAMS PER LITRE"},
    {u"LBFT3",   453.59237 / cubicFoot,    u"LB/FT3, LB/FT^3, LB/FT³, POUND PER CUBIC FOOT, POUNDS PER CUBIC FOOT"},  // SP 811
    {u"LBIN3",   453.59237 / 0.016387064,  u"LB/IN3, LB/IN^3, LB/IN³, POUND PER CUBIC INCH, POUNDS PER CUBIC INCH"},  // SP 811
};

constexpr UnitRow flow[] = { // base: litre per second
    {u"MLPS",    0.001,             u"ML/S, MILLILITER PER SECOND, MILLILITERS PER SECOND, MILLILITRE PER SECOND, MILLILITRES PER SECOND"},
    {u"MLPM",    0.001 / 60,        u"ML/MIN, MILLILITER PER MINUTE, MILLILITERS PER MINUTE, MILLILITRE PER MINUTE, MILLILITRES PER MINUTE"},
    {u"LPS",     1,                 u"L/S, LITER PER SECOND, LITERS PER SECOND, LITRE PER SECOND, LITRES PER SECOND"},
    {u"LPM",     1.0 / 60,          u"L/MIN, LITER PER MINUTE, LITERS PER MINUTE, LITRE PER MINUTE, LITRES PER MINUTE"},
    {u"LPH",     1.0 / 3600,        u"L/H, LITER PER HOUR, LITERS PER HOUR, LITRE PER HOUR, LITRES PER HOUR"},
    {u"GPM",     gallon / 60,       u"GAL/MIN, GALLON PER MINUTE, GALLONS PER MINUTE"}, // SP 811
    {u"GPH",     gallon / 3600,     u"GAL/H, GALLON PER HOUR, GALLONS PER HOUR"},
    {u"CFM",     cubicFoot / 60,    u"FT3/MIN, CUBIC FOOT PER MINUTE, CUBIC FEET PER MINUTE"}, // SP 811
    {u"CFS",     cubicFoot,         u"FT3/S, CUBIC FOOT PER SECOND, CUBIC FEET PER SECOND"},   // SP 811
    {u"M3S",     1000,              u"M3/S, CUBIC METER PER SECOND, CUBIC METERS PER SECOND, CUBIC METRE PER SECOND, CUBIC METRES PER SECOND"},
    {u"M3H",     1000.0 / 3600,     u"M3/H, CUBIC METER PER HOUR, CUBIC METERS PER HOUR, CUBIC METRE PER HOUR, CUBIC METRES PER HOUR"},
};

constexpr UnitRow fuelEconomy[] = { // base: kilometre per litre
    {u"KML",     1,                 u"KM/L, KMPL, KILOMETER PER LITER, KILOMETERS PER LITER, KILOMETRE PER LITRE, KILOMETRES PER LITRE"},
    {u"MPG",     1.609344 / gallon,         u"US MPG, MILES PER GALLON, US MILES PER GALLON"}, // SP 811
    {u"IMPG",    1.609344 / imperialGallon, u"IMP MPG, IMPERIAL MPG, UK MPG, IMPERIAL MILES PER GALLON, MILES PER IMPERIAL GALLON"},
    {u"L100KM",  100,               u"L/100KM, L PER 100KM, LITERS PER 100 KM, LITRES PER 100 KM", 0, UnitTransformKind::Reciprocal},
};

constexpr UnitRow current[] = { // base: ampere
    {u"UA",      1e-6,              u"µA, MICROAMP, MICROAMPS, MICROAMPERE, MICROAMPERES"},
    {u"MA",      0.001,             u"MILLIAMP, MILLIAMPS, MILLIAMPERE, MILLIAMPERES"},
    {u"A",       1,                 u"AMP, AMPS, AMPERE, AMPERES"},
    {u"KA",      1000,              u"KILOAMP, KILOAMPS, KILOAMPERE, KILOAMPERES"},
};

constexpr UnitRow voltage[] = { // base: volt
    {u"UV",      1e-6,              u"µV, MICROVOLT, MICROVOLTS"},
    {u"MVOLT",   0.001,             u"MILLIVOLT, MILLIVOLTS"},
    {u"V",       1,                 u"VOLT, VOLTS"},
    {u"KV",      1000,              u"KILOVOLT, KILOVOLTS"},
};

constexpr UnitRow resistance[] = { // base: ohm
    {u"MOHM",    0.001,             u"MILLIOHM, MILLIOHMS"},
    {u"OHM",     1,                 u"OHMS, Ω"},
    {u"KOHM",    1000,              u"KILOHM, KILOHMS, KΩ"},
    {u"MEGOHM",  1e6,               u"MEGOHMS, MEGAOHM, MEGAOHMS"},
};

constexpr UnitRow conductance[] = { // base: siemens
    {u"USIEMENS", 1e-6,             u"µSIEMENS, MICROSIEMENS"},
    {u"MSIEMENS", 0.001,            u"MILLISIEMENS"},
    {u"SIEMENS", 1,                 u"S, MHO, MHOS"},                                     // SP 811
};

constexpr UnitRow capacitance[] = { // base: farad
    {u"PF",      1e-12,             u"PICOFARAD, PICOFARADS"},
    {u"NF",      1e-9,              u"NANOFARAD, NANOFARADS"},
    {u"UF",      1e-6,              u"µF, MICROFARAD, MICROFARADS"},
    {u"MFARAD",  0.001,             u"MILLIFARAD, MILLIFARADS"},
    {u"FARAD",   1,                 u"FARADS, F"},
};

constexpr UnitRow inductance[] = { // base: henry
    {u"UH",      1e-6,              u"µH, MICROHENRY, MICROHENRYS"},
    {u"MHENRY",  0.001,             u"MH, MILLIHENRY, MILLIHENRYS"},
    {u"HENRY",   1,                 u"HENRYS, HENRIES, H"},
};

constexpr UnitRow charge[] = { // base: coulomb
    {u"UC",      1e-6,              u"µC, MICROCOULOMB, MICROCOULOMBS"},
    {u"MC",      0.001,             u"MILLICOULOMB, MILLICOULOMBS"},
    {u"COULOMB", 1,                 u"COULOMBS, C"},
    {u"MAH",     3.6,               u"MILLIAMP HOUR, MILLIAMP HOURS, MILLIAMPERE HOUR, MILLIAMPERE HOURS"},
    {u"AH",      3600,              u"AMP HOUR, AMP HOURS, AMPERE HOUR, AMPERE HOURS, AMP-HOUR"}, // SP 811
};

constexpr UnitRow illuminance[] = { // base: lux
    {u"LUX",     1,                 u"LX"},
    {u"FOOTCANDLE", 1 / 0.09290304, u"FOOTCANDLES, FOOT CANDLE, FOOT CANDLES, FOOT-CANDLE"}, // SP 811: lm/ft2
};

constexpr UnitRow absorbedDose[] = { // base: gray
    {u"GY",      1,                 u"GRAY, GRAYS"},
    {u"MGY",     0.001,             u"MILLIGRAY, MILLIGRAYS"},
    {u"RADDOSE", 0.01,              u"RAD DOSE, RADS"},                                // SP 811
};

constexpr UnitRow equivalentDose[] = { // base: sievert
    {u"SV",      1,                 u"SIEVERT, SIEVERTS"},
    {u"MSV",     0.001,             u"MILLISIEVERT, MILLISIEVERTS"},
    {u"USV",     1e-6,              u"µSV, MICROSIEVERT, MICROSIEVERTS"},
    {u"REM",     0.01,              u"REMS"},                                          // SP 811
};

constexpr UnitRow radioactivity[] = { // base: becquerel
    {u"BQ",      1,                 u"BECQUEREL, BECQUERELS"},
    {u"KBQ",     1e3,               u"KILOBECQUEREL, KILOBECQUERELS"},
    {u"MBQ",     1e6,               u"MEGABECQUEREL, MEGABECQUERELS"},
    {u"CI",      3.7e10,            u"CURIE, CURIES"},                                 // SP 811
};

constexpr UnitRow dynamicViscosity[] = { // base: pascal second
    {u"PAS",     1,                 u"PA·S, PASCAL SECOND, PASCAL SECONDS"},
    {u"POISE",   0.1,               u"POISES, P"},                                     // SP 811
    {u"CP",      0.001,             u"CENTIPOISE, CENTIPOISES"},
};

constexpr UnitRow kinematicViscosity[] = { // base: square metre per second
    {u"M2S",     1,                 u"M2/S, M^2/S, M²/S, SQUARE METER PER SECOND, SQUARE METERS PER SECOND, SQUARE METRE PER SECOND, SQUARE METRES PER SECOND"},
    {u"STOKE",   1e-4,              u"STOKES, ST"},                                    // SP 811
    {u"CST",     1e-6,              u"CENTISTOKE, CENTISTOKES"},
};

constexpr UnitRow resolutionDensity[] = { // base: dots per metre
    {u"DPI",     1 / 0.0254,        u"DOTS PER INCH"},
    {u"PPI",     1 / 0.0254,        u"PIXELS PER INCH"},
    {u"DPCM",    100,               u"DOTS PER CM, DOTS PER CENTIMETER, DOTS PER CENTIMETRE"},
};

constexpr UnitRow typography[] = { // base: inch; the point of desktop publishing, 1/72 in
    {u"TYPOPT",  1.0 / 72,          u"POINT, POINTS, TYPOGRAPHIC POINT, TYPOGRAPHIC POINTS, PT, PTS"},
    {u"PICA",    1.0 / 6,           u"PICAS"},                                         // 12 points
    {u"TYPOIN",  1,                 u"IN, INCH, INCHES"},
    {u"TYPOMM",  1 / 25.4,          u"MM, MILLIMETER, MILLIMETERS, MILLIMETRE, MILLIMETRES"},
};

constexpr UnitRow concentration[] = { // base: the bare ratio
    {u"PERCENT", 0.01,              u"PERCENTAGE, %, PER CENT, PCT"},
    {u"PPM",     1e-6,              u"PARTS PER MILLION"},
    {u"PPB",     1e-9,              u"PARTS PER BILLION"},
    {u"PPT",     1e-12,             u"PARTS PER TRILLION"},
};

constexpr UnitFamilyRows families[] = {
    {u"LENGTH",              length},
    {u"AREA",                area},
    {u"VOLUME",              volume},
    {u"MASS",                mass},
    {u"TEMPERATURE",         temperature},
    {u"TIME",                time},
    {u"SPEED",               speed},
    {u"ACCELERATION",        acceleration},
    {u"FORCE",               force},
    {u"PRESSURE",            pressure},
    {u"ENERGY",              energy},
    {u"POWER",               power},
    {u"TORQUE",              torque},
    {u"ANGLE",               angle},
    {u"FREQUENCY",           frequency},
    {u"DATA",                data},
    {u"DATA RATE",           dataRate},
    {u"DENSITY",             density},
    {u"FLOW",                flow},
    {u"FUEL ECONOMY",        fuelEconomy},
    {u"CURRENT",             current},
    {u"VOLTAGE",             voltage},
    {u"RESISTANCE",          resistance},
    {u"CONDUCTANCE",         conductance},
    {u"CAPACITANCE",         capacitance},
    {u"INDUCTANCE",          inductance},
    {u"CHARGE",              charge},
    {u"ILLUMINANCE",         illuminance},
    {u"ABSORBED DOSE",       absorbedDose},
    {u"EQUIVALENT DOSE",     equivalentDose},
    {u"RADIOACTIVITY",       radioactivity},
    {u"DYNAMIC VISCOSITY",   dynamicViscosity},
    {u"KINEMATIC VISCOSITY", kinematicViscosity},
    {u"RESOLUTION DENSITY",  resolutionDensity},
    {u"TYPOGRAPHY",          typography},
    {u"CONCENTRATION",       concentration},
};
// clang-format on

} // namespace

std::span<const UnitFamilyRows> UnitFamilies()
{
    return families;
}
