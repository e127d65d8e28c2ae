#include "maker/png.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

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

HRESULT create_encoder(Com<IWICBitmapEncoder> *encoder) {
  Com<IWICImagingFactory> factory;
  const HRESULT result =
      CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                       IID_IWICImagingFactory, reinterpret_cast<void **>(&factory.object));
  if (FAILED(result)) return result;
  return factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, &encoder->object);
}

HRESULT encode(IWICBitmapEncoder *encoder, IStream *stream, const Image &image) {
  Com<IWICBitmapFrameEncode> frame;
  HRESULT result = encoder->Initialize(stream, WICBitmapEncoderNoCache);
  if (SUCCEEDED(result)) result = encoder->CreateNewFrame(&frame.object, nullptr);
  if (SUCCEEDED(result)) result = write_frame(frame.object, image);
  return SUCCEEDED(result) ? encoder->Commit() : result;
}

// Whether a step succeeded. Otherwise says so with the system's code.
bool succeeded(HRESULT result, const char *problem, std::string *error) {
  if (SUCCEEDED(result)) return true;
  char code[32];
  std::snprintf(code, sizeof code, ", error 0x%08lx", static_cast<unsigned long>(result));
  *error = std::string(problem) + code;
  return false;
}

bool encode_in_memory(const Image &image, Com<IStream> *stream, std::string *error) {
  Com<IWICBitmapEncoder> encoder;
  return succeeded(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED),
                   "the system's COM library does not start", error) &&
         succeeded(CreateStreamOnHGlobal(nullptr, TRUE, &stream->object),
                   "there is no memory for the encoded picture", error) &&
         succeeded(create_encoder(&encoder), "the system has no PNG encoder", error) &&
         succeeded(encode(encoder.object, stream->object, image),
                   "the system's PNG encoder rejects the picture", error);
}

// Writes what the encoder left in memory. False, with errno, on failure.
bool copy_to_file(IStream *stream, FILE *file) {
  HGLOBAL memory = nullptr;
  STATSTG state = {};
  errno = EIO; // of what sets none
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
  FileReplacement file;
  if (!encode_in_memory(image, &stream, error)) return false;
  if (file_replace_begin(&file, path.c_str(), false) &&
      file_replace_end(&file, copy_to_file(stream.object, file.stream)))
    return true;
  *error = std::strerror(errno);
  return false;
}
