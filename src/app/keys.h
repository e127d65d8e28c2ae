#pragma once

// The keys that act once per press: display switches.
void keys_switches();

// Whether a key that ends the program is down.
bool keys_quit();
