#include "maker/png.h"

#include <cstdio>

#include <wincodec.h>

#include "support/file.h"

namespace {

// Releases a COM object at the end of its scope.
template <typename Interface> struct Com {
  Interface *object = nullptr;
  ~Com() {
    if (object != nullptr) object->Release();
  }
  Interface *operator->() const { return object; }
};

// The pixels in the byte order of the encoder, blue first.
std::vector<uint8_t> to_bgr(const Image &image) {
  std::vector<uint8_t> bgr(image.rgb.size());
  for (size_t i = 0; i < bgr.size(); i += 3) {
    bgr[i] = image.rgb[i + 2];
    bgr[i + 1] = image.rgb[i + 1];
    bgr[i + 2] = image.rgb[i];
  }
  return bgr;
}

HRESULT write_frame(IWICBitmapFrameEncode *frame, const Image &image) {
  const auto width = static_cast<UINT>(image.width), height = static_cast<UINT>(image.height);
  WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
  HRESULT result = frame->Initialize(nullptr);
  if (SUCCEEDED(result)) result = frame->SetSize(width, height);
  if (SUCCEEDED(result)) result = frame->SetPixelFormat(&format);
  std::vector<uint8_t> bgr = to_bgr(image);
  for (UINT y = 0; y < height && SUCCEEDED(result); y++) // a block may have 4 GiB at most
    result = frame->WritePixels(1, 3 * width, 3 * width, &bgr[size_t{3} * width * y]);
  return SUCCEEDED(result) ? frame->Commit() : result;
}

HRESULT encode(IStream *stream, const Image &image) {
  Com<IWICImagingFactory> factory;
  Com<IWICBitmapEncoder> encoder;
  Com<IWICBitmapFrameEncode> frame;
  HRESULT result =
      CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                       IID_IWICImagingFactory, reinterpret_cast<void **>(&factory.object));
  if (SUCCEEDED(result))
    result = factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, &encoder.object);
  if (SUCCEEDED(result)) result = encoder->Initialize(stream, WICBitmapEncoderNoCache);
  if (SUCCEEDED(result)) result = encoder->CreateNewFrame(&frame.object, nullptr);
  if (SUCCEEDED(result)) result = write_frame(frame.object, image);
  return SUCCEEDED(result) ? encoder->Commit() : result;
}

// Writes what the encoder left in memory.
bool copy_to_file(IStream *stream, FILE *file) {
  HGLOBAL memory = nullptr;
  STATSTG state = {};
  if (FAILED(GetHGlobalFromStream(stream, &memory)) ||
      FAILED(stream->Stat(&state, STATFLAG_NONAME)))
    return false;
  const auto size = static_cast<size_t>(state.cbSize.QuadPart);
  const void *bytes = GlobalLock(memory);
  const bool written = bytes != nullptr && std::fwrite(bytes, 1, size, file) == size;
  GlobalUnlock(memory);
  return written;
}

} // namespace

bool png_save(const Image &image, const std::string &path, std::string *error) {
  Com<IStream> stream;
  HRESULT result = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  if (SUCCEEDED(result)) result = CreateStreamOnHGlobal(nullptr, TRUE, &stream.object);
  if (SUCCEEDED(result)) result = encode(stream.object, image);
  if (FAILED(result)) {
    char words[64];
    std::snprintf(words, sizeof words, "the system's encoder failed with 0x%08lx",
                  static_cast<unsigned long>(result));
    *error = words;
    return false;
  }
  FileReplacement file;
  if (!file_replace_begin(&file, path.c_str(), false) ||
      !file_replace_end(&file, copy_to_file(stream.object, file.stream))) {
    *error = "the file could not be replaced";
    return false;
  }
  return true;
}
