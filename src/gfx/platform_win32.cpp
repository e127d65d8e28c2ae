#include "gfx/platform.h"

#include <cstdio>
#include <cstdlib>
#include <string>

#include <windows.h>

#include "gfx/platform_events.h"
#include "support/clock.h"
#include "support/report.h"

namespace {

constexpr const char *class_name = "OpenGL WinClass";
constexpr UINT class_style = CS_VREDRAW | CS_HREDRAW | CS_OWNDC;
constexpr DWORD visible_style = WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN;
constexpr DWORD framed_style =
    visible_style | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;
constexpr DWORD borderless_style = visible_style | WS_POPUP;
constexpr UINT box_style = MB_ICONHAND | MB_SETFOREGROUND;
constexpr WPARAM button_mask = MK_LBUTTON | MK_RBUTTON | MK_MBUTTON;
static_assert(mouse_left == MK_LBUTTON && mouse_right == MK_RBUTTON && mouse_middle == MK_MBUTTON);
const char *const icon_resource = MAKEINTRESOURCEA(1);

HICON class_icon; // none: set_icon gives the window itself the program's icon
HWND window_handle;
HDC device_context;
HGLRC gl_context;
bool fullscreen;
bool cursor_hidden;
bool session_ends;
bool box_is_open;
char last_error[512];

void keep_error() {
  const DWORD how = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS |
                    FORMAT_MESSAGE_MAX_WIDTH_MASK; // on one line
  const DWORD error = GetLastError();
  DWORD length = 0;
  if (error != ERROR_SUCCESS)
    length = FormatMessageA(how, nullptr, error, 0, last_error, sizeof last_error, nullptr);
  while (length > 0 && (last_error[length - 1] == ' ' || last_error[length - 1] == '.'))
    length--;
  last_error[length] = '\0';
  if (length == 0) std::snprintf(last_error, sizeof last_error, "%s", "no reason was given");
}

// Handlers of a group of messages each. They return false for what the system is to handle.
bool window_message(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
  case WM_CLOSE:
  case WM_DESTROY:
    event_close();
    return true;
  case WM_SIZE: // the first comes before there is a context
    event_resize(LOWORD(lparam), HIWORD(lparam));
    return true;
  case WM_QUERYENDSESSION: // the system allows some seconds before it ends the program
    session_ends = true;
    event_quit();
    return false;
  case WM_ENDSESSION: // the frame that would save does not come while a box is open
    if (box_is_open && wparam != FALSE) std::exit(0);
    return false;
  default:
    return false;
  }
}

// Releases all keys, since their release events go to another program. Caps Lock and the other
// locks stay on.
void forget_held_keys() {
  constexpr BYTE lock_bit = 1;
  BYTE keys[256];
  if (GetKeyboardState(keys) == FALSE) return;
  for (BYTE &key : keys)
    key &= lock_bit;
  SetKeyboardState(keys);
}

bool key_message(UINT message, WPARAM wparam) {
  switch (message) {
  case WM_KILLFOCUS:
    forget_held_keys();
    return false;
  case WM_CHAR:
    event_char(static_cast<uint32_t>(wparam & 0xFF));
    return true;
  case WM_SYSKEYDOWN: // Alt, F10 and Alt+Space would open the window's menu and block the frames
  case WM_SYSCHAR:
    return true;
  default:
    return false;
  }
}

bool mouse_message(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
  case WM_MOUSEMOVE:
  case WM_LBUTTONDOWN:
  case WM_LBUTTONUP:
  case WM_RBUTTONDOWN:
  case WM_RBUTTONUP:
  case WM_MBUTTONDOWN:
  case WM_MBUTTONUP:
    event_mouse({static_cast<uint32_t>(wparam & button_mask), LOWORD(lparam), HIWORD(lparam)});
    return true;
  case WM_MOUSEWHEEL: // the signed delta is the upper half of 32 bits
    event_wheel(static_cast<int32_t>(static_cast<uint32_t>(wparam)));
    return true;
  case WM_GESTURE:
    event_gesture(wparam, lparam);
    return true;
  default:
    return false;
  }
}

LRESULT CALLBACK gfx_window_proc(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  const bool handled = window_message(message, wparam, lparam) || key_message(message, wparam) ||
                       mouse_message(message, wparam, lparam);
  return handled ? 0 : DefWindowProcA(window, message, wparam, lparam);
}

bool register_class(HINSTANCE instance) {
  WNDCLASSA window_class = {};
  window_class.style = class_style;
  window_class.lpfnWndProc = gfx_window_proc;
  window_class.hInstance = instance;
  window_class.hIcon = class_icon;
  window_class.hCursor = LoadCursorA(nullptr, IDC_ARROW);
  window_class.lpszClassName = class_name;
  return RegisterClassA(&window_class) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

// Requested edges can be any 32-bit numbers, so the difference wraps.
int32_t distance(int32_t first, int32_t end) {
  return static_cast<int32_t>(static_cast<uint32_t>(end) - static_cast<uint32_t>(first));
}

bool create_window(const PlatformWindowRequest &request, HINSTANCE instance) {
  const MonitorRect &outer = request.outer;
  DWORD style = request.framed ? framed_style : borderless_style;
  if (request.hidden) style &= ~DWORD{WS_VISIBLE};
  window_handle = CreateWindowExA(
      0, class_name, request.title, style, outer.left, outer.top, distance(outer.left, outer.right),
      distance(outer.top, outer.bottom), nullptr, nullptr, instance, nullptr);
  return window_handle != nullptr;
}

// Sets the program's icon in both sizes.
void set_icon(HINSTANCE instance) {
  const auto load = [instance](int width, int height) {
    return reinterpret_cast<LPARAM>(
        LoadImageA(instance, icon_resource, IMAGE_ICON, width, height, LR_DEFAULTCOLOR));
  };
  SendMessageA(window_handle, WM_SETICON, ICON_BIG,
               load(GetSystemMetrics(SM_CXICON), GetSystemMetrics(SM_CYICON)));
  SendMessageA(window_handle, WM_SETICON, ICON_SMALL,
               load(GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON)));
}

PIXELFORMATDESCRIPTOR pixel_format() {
  PIXELFORMATDESCRIPTOR format = {};
  format.nSize = sizeof format;
  format.nVersion = 1;
  format.dwFlags = PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL | PFD_DOUBLEBUFFER;
  format.iPixelType = PFD_TYPE_RGBA;
  format.cColorBits = 24;
  format.cDepthBits = 32;
  format.iLayerType = PFD_MAIN_PLANE;
  return format;
}

PlatformOpen create_context() {
  device_context = GetDC(window_handle);
  const PIXELFORMATDESCRIPTOR wanted = pixel_format();
  const int format = ChoosePixelFormat(device_context, &wanted);
  if (format == 0) return PlatformOpen::no_pixel_format;
  if (SetPixelFormat(device_context, format, &wanted) == FALSE)
    return PlatformOpen::bad_pixel_format;
  gl_context = wglCreateContext(device_context);
  if (gl_context == nullptr) return PlatformOpen::no_context;
  if (wglMakeCurrent(device_context, gl_context) == FALSE) return PlatformOpen::no_current;
  return PlatformOpen::ok;
}

// On failure the display keeps its mode and the window covers a part of it.
void change_display_mode(int32_t width, int32_t height) {
  DEVMODEA mode = {};
  static_assert(sizeof mode == 156);
  mode.dmSize = sizeof mode;
  mode.dmFields = DM_PELSWIDTH | DM_PELSHEIGHT;
  mode.dmPelsWidth = static_cast<DWORD>(width);
  mode.dmPelsHeight = static_cast<DWORD>(height);
  ChangeDisplaySettingsA(&mode, CDS_FULLSCREEN);
}

MonitorRect edges(const RECT &rect) {
  return {rect.left, rect.top, rect.right, rect.bottom};
}

BOOL CALLBACK append_monitor(HMONITOR monitor, HDC, RECT *rect, LPARAM to) {
  const MonitorRect row = edges(*rect);
  GrowList_append(reinterpret_cast<GrowList *>(to), &row);
  CloseHandle(monitor); // fails on systems where monitors are not handles of the process
  return TRUE;
}

// Drivers also return small numbers for entry points that they lack.
bool is_entry_point(PROC proc) {
  const auto number = reinterpret_cast<intptr_t>(proc);
  return number < -1 || number > 3;
}

bool counter_frequency(int32_t *high, uint32_t *low) {
  LARGE_INTEGER number = {};
  if (QueryPerformanceFrequency(&number) == 0) return false;
  *high = number.u.HighPart;
  *low = number.u.LowPart;
  return true;
}

void counter_reading(int32_t *high, uint32_t *low) {
  LARGE_INTEGER number = {};
  QueryPerformanceCounter(&number);
  *high = number.u.HighPart;
  *low = number.u.LowPart;
}

uint32_t ticks() {
  return GetTickCount();
}

uint32_t thread_number() {
  return GetCurrentThreadId();
}

void wait(int32_t milliseconds) {
  Sleep(static_cast<DWORD>(milliseconds));
}

// Shows a sentence in a box if there is no standard error, which a program with windows has only if
// its parent passed one. Capitalises the sentence. Nobody answers a box when the session ends.
void show_sentence(const char *sentence) {
  if (session_ends || GetFileType(GetStdHandle(STD_ERROR_HANDLE)) != FILE_TYPE_UNKNOWN) return;
  std::string text = sentence;
  if (!text.empty() && text[0] >= 'a' && text[0] <= 'z')
    text[0] = static_cast<char>(text[0] - 'a' + 'A');
  platform_message_box("Vorel", text.c_str());
}

// Otherwise the next frame would see the key that closed the box, and Escape would quit.
void wait_for_answer_keys() {
  for (int tries = 0; tries < 200; tries++) {
    bool held = false;
    for (const int key : {VK_ESCAPE, VK_RETURN, VK_SPACE})
      held = held || GetAsyncKeyState(key) < 0;
    if (!held) return;
    Sleep(10);
  }
}

} // namespace

void platform_dpi_aware() {
  const HMODULE library = LoadLibraryA("user32.dll");
  if (library == nullptr) return;
  const auto aware = reinterpret_cast<BOOL(WINAPI *)()>(
      reinterpret_cast<void *>(GetProcAddress(library, "SetProcessDPIAware")));
  if (aware != nullptr) aware();
  FreeLibrary(library);
}

void platform_begin() {
  clock_set_source({counter_frequency, counter_reading, ticks});
  report_set_hooks({wait, thread_number});
  report_set_show(show_sentence);
}

bool platform_connect(bool) {
  return true; // there is always a display; platform_open finds out what it lacks
}

DisplayMetrics platform_metrics() {
  DisplayMetrics metrics = {};
  metrics.primary_width = GetSystemMetrics(SM_CXSCREEN);
  metrics.primary_height = GetSystemMetrics(SM_CYSCREEN);
  const int32_t left = GetSystemMetrics(SM_XVIRTUALSCREEN);
  const int32_t top = GetSystemMetrics(SM_YVIRTUALSCREEN);
  metrics.virtual_desktop = {left, top, left + GetSystemMetrics(SM_CXVIRTUALSCREEN),
                             top + GetSystemMetrics(SM_CYVIRTUALSCREEN)};
  metrics.frame_width = GetSystemMetrics(SM_CXFRAME);
  metrics.frame_height = GetSystemMetrics(SM_CYFRAME);
  metrics.caption_height = GetSystemMetrics(SM_CYCAPTION);
  return metrics;
}

void platform_monitors(GrowList *out) {
  EnumDisplayMonitors(nullptr, nullptr, append_monitor, reinterpret_cast<LPARAM>(out));
}

PlatformOpen platform_open(const PlatformWindowRequest *request) {
  const HINSTANCE instance = GetModuleHandleA(nullptr);
  fullscreen = !request->framed;
  PlatformOpen stage = PlatformOpen::ok;
  if (!register_class(instance))
    stage = PlatformOpen::no_class;
  else if (!create_window(*request, instance))
    stage = PlatformOpen::no_window;
  else
    stage = create_context();
  if (stage != PlatformOpen::ok) {
    keep_error();
    return stage;
  }
  set_icon(instance);
  if (request->change_display_mode)
    change_display_mode(request->client_width, request->client_height);
  return stage;
}

const char *platform_error() {
  return last_error;
}

// One round of messages can hold two requests to close.
void platform_close() {
  if (fullscreen) ChangeDisplaySettingsA(nullptr, 0);
  if (gl_context == nullptr) return;
  wglMakeCurrent(device_context, nullptr);
  wglDeleteContext(gl_context);
  gl_context = nullptr;
  ReleaseDC(window_handle, device_context);
  device_context = nullptr;
}

// The system's library exports OpenGL 1.1, which wglGetProcAddress does not return.
void *platform_gl_proc(const char *name) {
  PROC proc = wglGetProcAddress(name);
  if (!is_entry_point(proc)) proc = GetProcAddress(GetModuleHandleA("opengl32.dll"), name);
  return reinterpret_cast<void *>(proc);
}

void platform_swap_buffers() {
  SwapBuffers(device_context);
}

const char *platform_swap_extension() {
  return "WGL_EXT_swap_control";
}

void platform_swap_interval(int32_t frames) {
  const auto swap_interval_proc =
      reinterpret_cast<BOOL(WINAPI *)(int)>(platform_gl_proc("wglSwapIntervalEXT"));
  if (swap_interval_proc != nullptr) swap_interval_proc(frames);
}

bool platform_messages() {
  MSG message;
  while (!session_ends && PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE) != FALSE) {
    if (GetMessageA(&message, nullptr, 0, 0) == 0) return true;
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
  return false;
}

void platform_wait(int32_t milliseconds) {
  MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(milliseconds), QS_ALLINPUT,
                              MWMO_INPUTAVAILABLE);
}

bool platform_is_minimised() {
  return IsIconic(window_handle) != FALSE;
}

void platform_minimise() {
  CloseWindow(window_handle); // minimises, despite its name
}

void platform_keep_on_top() {
  SetWindowPos(window_handle, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE);
}

// For a moment, while windows change places, there is no foreground window.
bool platform_has_focus() {
  const HWND front = GetForegroundWindow();
  return (front != nullptr ? front : GetActiveWindow()) == window_handle;
}

void platform_key_snapshot(uint8_t keys[256]) {
  GetKeyboardState(keys);
}

MonitorRect platform_window_rect() {
  RECT rect = {};
  GetWindowRect(window_handle, &rect);
  return edges(rect);
}

DisplayPoint platform_cursor() {
  POINT cursor = {};
  GetCursorPos(&cursor);
  return {cursor.x, cursor.y};
}

bool platform_set_cursor(DisplayPoint position) {
  return SetCursorPos(position.x, position.y) != FALSE;
}

// The cursor can't be moved only while another desktop is shown, such as that of a password prompt.
DisplayPoint platform_relative_motion() {
  return {0, 0};
}

// ShowCursor counts its calls, so call it only for a change.
void platform_show_cursor(bool shown) {
  if (shown != cursor_hidden) return;
  ShowCursor(shown ? TRUE : FALSE);
  cursor_hidden = !shown;
}

// The state belongs to the thread and ends with it.
void platform_allow_screen_saver(bool allowed) {
  SetThreadExecutionState(allowed ? ES_CONTINUOUS : ES_CONTINUOUS | ES_DISPLAY_REQUIRED);
}

// Puts a hidden cursor back where it was: its motion to the button would move the user.
void platform_message_box(const char *caption, const char *text) {
  const bool was_hidden = cursor_hidden;
  const DisplayPoint cursor = platform_cursor();
  platform_show_cursor(true); // to answer with
  box_is_open = true;
  MessageBoxA(window_handle, text, caption, box_style);
  box_is_open = false;
  wait_for_answer_keys();
  if (!was_hidden) return;
  platform_set_cursor(cursor);
  platform_show_cursor(false);
}

void platform_date(char date[platform_date_size]) {
  char day[32] = "";
  char time[16] = "";
  date[0] = '\0';
  if (GetDateFormatA(LOCALE_USER_DEFAULT, 0, nullptr, "yyyy-MMM-dd", day, sizeof day) == 0) return;
  if (GetTimeFormatA(LOCALE_USER_DEFAULT, TIME_FORCE24HOURFORMAT, nullptr, "HH:mm:ss", time,
                     sizeof time) == 0)
    return;
  std::snprintf(date, platform_date_size, "%s %s", day, time);
}
