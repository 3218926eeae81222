#pragma once

#include <QString>
#include <cstdint>

namespace sidekin {

class EntryForm;

// The sample chain of an entry form, from ORQ.INI: operator to samples, sample
// to methods, and what choosing a method sets up.

// Appends the operator's samples and the injection counts 1 to 8; clears nothing.
void InitForm(EntryForm& frm);
// A changed sample: dependent fields emptied, its methods listed; one method is chosen at once.
void SampleClick(EntryForm& frm);
// Copies run table row `row` into the form; the sample and method choices run their clicks.
void AddEntryToForm(EntryForm& frm, std::int16_t& row);

// The pair's defaults, the method's injector and source, the vial list.
void MethodClick(EntryForm& frm);

// The host's reply for one vial position: "1" valid, "0" not, empty after a link failure.
QString IsVialNumberValid(std::int16_t tray, std::int16_t vial);
// Range of a model 4410 by probing 100, 8, 3 and 1 positions.
void Get4410VialRange(const QString& injector, QString& lowerVial, QString& upperVial);
// Range of a model 4420 or 4430 from the driver's file, corrected by probes on a 4420.
void GetDriverVialRange(const QString& injector, QString& lowerVial, QString& upperVial,
                        std::int16_t is4420);

}  // namespace sidekin
