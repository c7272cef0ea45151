#ifndef ZORVA_AUTHOR_EFFECTS_H
#define ZORVA_AUTHOR_EFFECTS_H

#include "finding.h"

namespace Orvane {
namespace Author {

class Subject;

/**
 * Gives each error the effect it has on the live form, in numbers and names, and sees
 * to it that nothing is lost without a finding: a loss that no rule speaks of gets one
 * of its own, so that every loss has an error on its line or before it, and what a later
 * twin replaces has a warning at one of the two.
 */
void addEffects(Subject& subject);

/** What the live form lacks. */
Losses lossesOf(const Subject& subject);

} // namespace Author
} // namespace Orvane

#endif
