#pragma once

#include <QString>
#include <QStringList>
#include <vector>

// The vocabulary of amounts. A recipe line is turned once, when it is added, into three
// values: the English amount text, the metric amount text and the ounces (a count for counted
// measures). Nothing recomputes them later, so these functions are the only place where a
// measure word means a number.

// One measure of the drink editor's unit list.
struct Measure {
    QString name;           // as the list offers it
    QString singular;       // word of the amount text for an amount up to 1
    QString plural;         // word of the amount text for an amount above 1
    double ounces = 0;      // ounces, or pieces, per unit
    int milliliters = 0;    // milliliters per unit; the count itself for counted measures
    QString metricSingular; // word behind the metric number; empty for none
    QString metricPlural;
    bool hasNumber = true; // false for "Fill With" and "Top With"
};

// The editor's unit list, in its order (the position is the list index).
const std::vector<Measure> &EditorMeasures();
QStringList EditorMeasureNames();

// A measure by its exact name: those of the list, and also "cl" and "ml", which the list
// does not offer but other callers may use. Null for an unknown name.
const Measure *FindMeasure(const QString &name);

// The amount text as typed, one blank and the unit word ("1.50 oz", "2 dashes"); the measure's
// own name for "Fill With" and "Top With". An unknown measure gives the text and one blank.
QString GetAmountText(const QString &amountText, const QString &measureName);

// The amount in milliliters, written as liters above 1000 ("#0.000 lt"), centiliters above 10
// ("#0.0 cl") or milliliters ("#0 ml"), then one blank and the measure's metric word, which
// may be empty, leaving the trailing blank: "3.0 cl ", "2 ml dashes", "2.000 lt lt". The
// measure's own name for "Fill With" and "Top With"; an unknown measure counts 0 ml.
QString GetMetricAmountText(const QString &amountText, const QString &measureName);

// The amount in ounces (or pieces), single precision. 0 for "Fill With", "Top With" and
// unknown measures.
float GetOunces(const QString &amountText, const QString &measureName);

// Writes a single-precision number with a fixed count of decimals, halves away from zero, the
// way the old runtime formatted a single: from its seven significant digits, so 1.05 (held as
// 1.04999995) writes as 1.1 with one decimal.
QString FormatSingle(float value, int decimals);

// One unit of the English / metric conversion dialog. Its list is the reference table, with
// numbers of its own: it is not derived from the editor's list, nor that one from it.
struct MetricConvertUnit {
    QString name;
    double toOunces = 0;            // one unit in ounces
    bool fromOuncesDivides = false; // ounces divided by fromOunces, else multiplied by it
    double fromOunces = 0;
};

// The fifteen units of the dialog, in list order.
const std::vector<MetricConvertUnit> &MetricConvertUnits();

// An amount of the unit at fromIndex in the unit at toIndex, worked in double precision
// through ounces.
double ConvertAmount(double amount, int fromIndex, int toIndex);
