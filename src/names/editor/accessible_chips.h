#pragma once

class ChipBar;

/// Tells screen readers of every `ChipBar` as a list of tabs, by its own name and description
/// (those of a plain tab bar are the selected tab's, or none). To be called before the first one is
/// shown; more calls do nothing.
void MakeChipsAccessible();
