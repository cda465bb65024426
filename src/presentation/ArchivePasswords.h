#pragma once

// The fixed passwords of the two picture archives delivered with the program. They keep
// casual browsing out of the archives, nothing more: anyone with the program has them.
namespace ArchivePasswords {
// Corvane.cvi: the drink pictures, members "NNNNNN.jpg".
inline constexpr char ImageArchive[] = "47vex91";
// corvane.glw: the glass pictures for printing, members "NN.gif".
inline constexpr char GlassArchive[] = "91vex47";
} // namespace ArchivePasswords
