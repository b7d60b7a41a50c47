// What each page of the program is for, in a few words.
#pragma once

// The explanation of the page of that control name; null for one that needs none.
const char* explanation_of_page(const char* page);
