// Carries the precompiled headers; there is nothing else in it.
