#pragma once

#include <QString>

namespace ovrano::bench {

void undoing();
void reading();
void saving();
void gif();

/// Saves for the eye what gif() compares: for each kind of picture an enlarged part of it and of what becomes
/// of it; from the left: as it is, ours without and with diffusion, libimagequant's without and with.
void saveGifSheets(const QString& folder);

} // namespace ovrano::bench
