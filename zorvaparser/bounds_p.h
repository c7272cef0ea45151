#ifndef ZORVABOUNDS_P_H
#define ZORVABOUNDS_P_H

#include <QtGlobal>

namespace Orvane {

// The upper ends of what a description, parameter XML or a script can ask for with
// a few letters: no text may choose how much memory, stack or time a form takes.

/** Blocks inside blocks: the walk through properties calls itself for each level. */
constexpr int deepestBlock = 500;

/** Names a description gives to one row: Qt looks a dynamic property up one by one. */
constexpr int mostProperties = 1000;

/** Names of properties that rows have in one place; the kinds know about a hundred. */
constexpr int mostSharedNames = 500;

/** Letters of a text that a row may share with the one before it; most that come again are shorter. */
constexpr int longestSharedText = 40;

/** Cells of a table, items of a hidden list. */
constexpr qint64 mostCells = 1000000;

/** Boxes in one list of spin boxes; each is a control of its own. */
constexpr int mostSpinBoxes = 10000;

/** Lines of a table of channel spacings. */
constexpr int mostSpacings = 100000;

/** The last digit that any double has behind the point. */
constexpr int lastDecimal = 1074;

/** Lists in lists that a script may hand to a row: each takes its part of the stack. */
constexpr int deepestScriptValue = 100;

/** Pixels of a side of a button's icon, and of an image that is read for one. */
constexpr int largestIcon = 1024;
constexpr int largestImage = 8192;

/** Bytes of a file with an image. */
constexpr qint64 largestImageFile = qint64(16) * 1024 * 1024;

/**
 * Levels that parameter XML is indented by: each costs each of its lines four
 * blanks, and below this one no reader's eyes are left.
 */
constexpr int deepestIndent = 200;

/** What a row without limits has as its limits. */
constexpr double noMinimum = -1e308;
constexpr double noMaximum = 1e308;

} // namespace Orvane

#endif
