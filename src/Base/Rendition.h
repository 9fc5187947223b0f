#pragma once

// How texts name the desktop's keys and places: the Mac's symbols and words
// ("⌘", "menu bar"), or those of Linux and Windows ("Super", "tray"). Texts
// take it as a parameter, so both are tested on any machine.
enum class Rendition { mac, pc };

// The rendition of the system the program runs on, decided at run time.
Rendition hostRendition();
