#include <cstring>

#include <SDL.h>

#include "gfx/platform.h"
#include "gfx/platform_events.h"

// The keyboard: virtual-key codes by the user's layout.

namespace {

struct KeyCode {
  SDL_Keycode from;
  uint8_t to;
};

// Keys other than letters, digits and function keys.
constexpr KeyCode key_codes[] = {
    {SDLK_BACKSPACE, 8},      {SDLK_TAB, vk_tab},       {SDLK_RETURN, 13},
    {SDLK_KP_ENTER, 13},      {SDLK_PAUSE, 19},         {SDLK_CAPSLOCK, 20},
    {SDLK_ESCAPE, vk_escape}, {SDLK_SPACE, vk_space},   {SDLK_PAGEUP, 33},
    {SDLK_PAGEDOWN, 34},      {SDLK_END, 35},           {SDLK_HOME, 36},
    {SDLK_LEFT, vk_left},     {SDLK_UP, vk_up},         {SDLK_RIGHT, vk_right},
    {SDLK_DOWN, vk_down},     {SDLK_PRINTSCREEN, 44},   {SDLK_INSERT, 45},
    {SDLK_DELETE, 46},        {SDLK_LGUI, 91},          {SDLK_RGUI, 92},
    {SDLK_KP_0, 96},          {SDLK_KP_MULTIPLY, 106},  {SDLK_KP_PLUS, 107},
    {SDLK_KP_MINUS, 109},     {SDLK_KP_PERIOD, 110},    {SDLK_KP_DIVIDE, 111},
    {SDLK_APPLICATION, 93},   {SDLK_NUMLOCKCLEAR, 144}, {SDLK_SCROLLLOCK, 145},
    {SDLK_LSHIFT, 160},       {SDLK_RSHIFT, 161},       {SDLK_LCTRL, 162},
    {SDLK_RCTRL, 163},        {SDLK_LALT, 164},         {SDLK_RALT, 165},
    {SDLK_SEMICOLON, 186},    {SDLK_EQUALS, 187},       {SDLK_COMMA, 188},
    {SDLK_MINUS, 189},        {SDLK_PERIOD, 190},       {SDLK_SLASH, 191},
    {SDLK_BACKQUOTE, 192},    {SDLK_LEFTBRACKET, 219},  {SDLK_BACKSLASH, 220},
    {SDLK_RIGHTBRACKET, 221}, {SDLK_QUOTE, 222},
};

// Maps the codes from `first` to `last` to the codes from `to` up; 0 for any other code.
int32_t map_range(int32_t code, int32_t first, int32_t last, int32_t to) {
  return code >= first && code <= last ? to + code - first : 0;
}

int32_t key_of_layout(SDL_Keycode code) {
  for (const KeyCode &entry : key_codes)
    if (entry.from == code) return entry.to;
  return map_range(code, SDLK_a, SDLK_z, 'A') + map_range(code, SDLK_0, SDLK_9, '0') +
         map_range(code, SDLK_F1, SDLK_F12, 112) + map_range(code, SDLK_F13, SDLK_F24, 124) +
         map_range(code, SDLK_KP_1, SDLK_KP_9, 97);
}

// Letters and digits by their places on the keyboard; 0 for other keys.
int32_t key_of_place(int scancode) {
  return map_range(scancode, SDL_SCANCODE_A, SDL_SCANCODE_Z, 'A') +
         map_range(scancode, SDL_SCANCODE_1, SDL_SCANCODE_9, '1') +
         map_range(scancode, SDL_SCANCODE_0, SDL_SCANCODE_0, '0');
}

// Whether no key of the layout gives this letter, as in other alphabets.
bool is_missing_letter(int32_t key) {
  const int32_t code = map_range(key, 'A', 'Z', SDLK_a);
  return code != 0 && SDL_GetScancodeFromKey(code) == SDL_SCANCODE_UNKNOWN;
}

// With Num Lock off, SDL still gives the digits of the keypad.
int32_t keypad_arrow(SDL_Keycode code) {
  if ((SDL_GetModState() & KMOD_NUM) != 0) return 0;
  return map_range(code, SDLK_KP_4, SDLK_KP_4, vk_left) +
         map_range(code, SDLK_KP_8, SDLK_KP_8, vk_up) +
         map_range(code, SDLK_KP_6, SDLK_KP_6, vk_right) +
         map_range(code, SDLK_KP_2, SDLK_KP_2, vk_down);
}

// By the user's layout. A key whose symbol has no code, as with digits on Shift, goes by its place,
// and so does one whose place is that of a letter which the layout lacks.
int32_t virtual_key(int scancode) {
  const SDL_Keycode code = SDL_GetKeyFromScancode(static_cast<SDL_Scancode>(scancode));
  const int32_t place = key_of_place(scancode);
  if (is_missing_letter(place)) return place;
  if (const int32_t arrow = keypad_arrow(code); arrow != 0) return arrow;
  const int32_t key = key_of_layout(code);
  return key != 0 ? key : place;
}

} // namespace

void platform_key_snapshot(uint8_t keys[256]) {
  std::memset(keys, 0, 256);
  int count = 0;
  const uint8_t *held = SDL_GetKeyboardState(&count);
  for (int scancode = count - 1; scancode > 0; scancode--)
    if (held[scancode] != 0) keys[virtual_key(scancode)] = 0x80;
  keys[0] = 0; // keys without a code
  for (int side = 0; side < 2; side++) {
    keys[vk_shift] |= keys[160 + side];
    keys[vk_control] |= keys[162 + side];
    keys[vk_alt] |= keys[164 + side];
  }
}
