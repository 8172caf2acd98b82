#include "sound.hpp"

#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <regex>

#include "failure.hpp"

namespace tool {

namespace {

Encoding encodingOf(int format) {
  switch (format & SF_FORMAT_SUBMASK) {
    case SF_FORMAT_PCM_S8:
    case SF_FORMAT_PCM_U8:
      return Encoding::pcm8;
    case SF_FORMAT_PCM_16:
      return Encoding::pcm16;
    case SF_FORMAT_PCM_24:
      return Encoding::pcm24;
    case SF_FORMAT_PCM_32:
      return Encoding::pcm32;
    case SF_FORMAT_FLOAT:
      return Encoding::float32;
    case SF_FORMAT_DOUBLE:
      return Encoding::float64;
    case SF_FORMAT_ALAW:
      return Encoding::aLaw;
    case SF_FORMAT_ULAW:
      return Encoding::muLaw;
    default:
      return Encoding::other;
  }
}
std::vector<int> subtypesOf(Encoding encoding) {
  switch (encoding) {
    case Encoding::pcm8:
      return {SF_FORMAT_PCM_U8, SF_FORMAT_PCM_S8};
    case Encoding::pcm16:
      return {SF_FORMAT_PCM_16};
    case Encoding::pcm24:
      return {SF_FORMAT_PCM_24};
    case Encoding::pcm32:
      return {SF_FORMAT_PCM_32};
    case Encoding::float32:
      return {SF_FORMAT_FLOAT};
    case Encoding::float64:
      return {SF_FORMAT_DOUBLE};
    case Encoding::aLaw:
      return {SF_FORMAT_ALAW};
    case Encoding::muLaw:
      return {SF_FORMAT_ULAW};
    default:
      return {};
  }
}
std::size_t bytesOf(Encoding encoding) {
  switch (encoding) {
    case Encoding::float32:
      return 4;
    case Encoding::float64:
      return 8;
    case Encoding::aLaw:
    case Encoding::muLaw:
      return 1;
    default:
      return std::size_t(bitsOf(encoding)) / 8;
  }
}

constexpr struct {
  const char* extension;
  int format;
} containers[] = {{"wav", SF_FORMAT_WAV},   {"wave", SF_FORMAT_WAV},  {"rf64", SF_FORMAT_RF64}, {"w64", SF_FORMAT_W64},
                  {"flac", SF_FORMAT_FLAC}, {"aiff", SF_FORMAT_AIFF}, {"aif", SF_FORMAT_AIFF},  {"au", SF_FORMAT_AU},
                  {"snd", SF_FORMAT_AU},    {"caf", SF_FORMAT_CAF}};
int containerOf(const std::string& path, const SoundShape& shape) {
  if (path == "-") return SF_FORMAT_AU;
  if (path.rfind("/dev/", 0) == 0) return SF_FORMAT_AU;
  const std::size_t dot = path.rfind('.');
  std::string extension = dot == std::string::npos ? "" : path.substr(dot + 1);
  for (char& c : extension) c = char(std::tolower(static_cast<unsigned char>(c)));
  for (const auto& container : containers) {
    if (extension != container.extension) continue;
    const double bytes = double(shape.frames) * double(shape.channels) * double(bytesOf(shape.encoding));
    const bool mayBeLong = shape.frames == 0 || bytes > 4.2e9;  // 32-bit sizes end at 4.29e9
    return container.format == SF_FORMAT_WAV && mayBeLong ? SF_FORMAT_RF64 : container.format;
  }
  throw Failure(Exit::usage, path + ": the name must end in .wav, .rf64, .w64, .flac, .aiff, .au or .caf");
}

// Channel c of interleaved frames. Two channels are pairs, which the library parts.
template <class T>
void split(const std::vector<T>& frames, std::size_t count, std::size_t channels, std::size_t c,
           std::vector<T>& plane) {
  plane.resize(count);
  for (std::size_t i = 0; i < count; ++i) plane[i] = frames[i * channels + c];
}
void toFloat(std::span<const short> src, std::span<float> dst) { zors::convert(src, dst, {.scaleFactor = 15}); }
void toFloat(std::span<const int> src, std::span<float> dst) { zors::convert(src, dst, {.scaleFactor = 31}); }
void toFloat(std::span<const float> src, std::span<float> dst) { zors::copy(src, dst); }

}  // namespace

const char* nameOf(Encoding encoding) {
  constexpr const char* names[] = {"8-bit",        "16-bit", "24-bit", "32-bit",    "32-bit float",
                                   "64-bit float", "A-law",  "mu-law", "compressed"};
  return names[int(encoding)];
}
int bitsOf(Encoding encoding) {
  constexpr int bits[] = {8, 16, 24, 32};
  return encoding <= Encoding::pcm32 ? bits[int(encoding)] : 0;
}
std::size_t blockFrames(std::size_t channels) { return std::clamp<std::size_t>(65536 / channels, 512, 16384); }

SoundReader::SoundReader(const std::string& path, bool partial, NaN nan)
    : name_(path == "-" ? "standard input" : path), partial_(partial), nan_(nan) {
  const bool standard = path == "-";
  struct stat there {};
  if ((standard ? fstat(STDIN_FILENO, &there) : stat(path.c_str(), &there)) != 0) {
    throw Failure(Exit::input, name_ + ": " + std::strerror(errno));
  }
  if (S_ISDIR(there.st_mode)) throw Failure(Exit::input, name_ + ": is a directory");
  if (S_ISREG(there.st_mode) && there.st_size == 0) throw Failure(Exit::input, name_ + ": is empty");
  if (!standard && access(path.c_str(), R_OK) != 0) throw Failure(Exit::input, name_ + ": " + std::strerror(errno));
  file_.reset(standard ? sf_open_fd(STDIN_FILENO, SFM_READ, &info_, SF_FALSE)
                       : sf_open(path.c_str(), SFM_READ, &info_));
  if (!file_) {
    std::string why = sf_strerror(nullptr);
    while (!why.empty() && (why.back() == '.' || why.back() == '\n')) why.pop_back();
    throw Failure(Exit::input, name_ + ": cannot be read as sound: " + why);
  }
  if (info_.samplerate < 1) throw Failure(Exit::input, name_ + ": has no sample rate");
  if (info_.channels < 1) throw Failure(Exit::input, name_ + ": has no channels");
  encoding_ = encodingOf(info_.format);
  const bool told = S_ISREG(there.st_mode) && info_.frames < SF_COUNT_MAX / 16;
  frames_ = told ? info_.frames : 0;
  if (told && !partial) refuseTruncated();
}

// What libsndfile notes of a file whose header promises more than there is. Headers of streams promise the most they
// can.
void SoundReader::refuseTruncated() const {
  std::vector<char> log(65536);
  sf_command(file_.get(), SFC_GET_LOG_INFO, log.data(), int(log.size()));
  static const std::regex promise("^ *(?:data|Data Size|SSND) *: *(\\d+) \\(should be (\\d+)\\)",
                                  std::regex::multiline);
  std::cmatch found;
  if (!std::regex_search(log.data(), found, promise)) return;
  const double promised = std::stod(found[1]), there = std::stod(found[2]);
  if (there < promised && promised < 2147479552.0) {
    throw Failure(Exit::input, fmt::format("{}: is truncated: {:.0f} of {:.0f} bytes of sound; --partial takes them",
                                           name_, there, promised));
  }
}

std::string SoundReader::formatName() const {
  SF_FORMAT_INFO major{.format = info_.format & SF_FORMAT_TYPEMASK, .name = nullptr, .extension = nullptr};
  SF_FORMAT_INFO minor{.format = info_.format & SF_FORMAT_SUBMASK, .name = nullptr, .extension = nullptr};
  sf_command(nullptr, SFC_GET_FORMAT_INFO, &major, sizeof major);
  sf_command(nullptr, SFC_GET_FORMAT_INFO, &minor, sizeof minor);
  return fmt::format("{}, {}", major.name ? major.name : "?", minor.name ? minor.name : "?");
}

template <class T>
std::size_t SoundReader::take(sf_count_t (*readFrames)(SNDFILE*, T*, sf_count_t), std::vector<T>& frames,
                              std::vector<T>& plane, Planes& block, std::size_t wanted) {
  frames.resize(wanted * channels());
  const auto got = std::size_t(std::max<sf_count_t>(0, readFrames(file_.get(), frames.data(), sf_count_t(wanted))));
  block.setFrames(got);
  if (got == 0) return 0;
  if (channels() == 1) {
    toFloat(std::span(frames).first(got), block[0]);
    return got;
  }
  if constexpr (std::is_same_v<T, float>) {
    if (channels() == 2) {
      zors::toParts(std::span(reinterpret_cast<const std::complex<float>*>(frames.data()), got), block[0], block[1]);
      return got;
    }
  }
  if constexpr (std::is_same_v<T, short>) {
    if (channels() == 2) {
      plane.resize(2 * got);
      const std::span left(plane.data(), got), right(plane.data() + got, got);
      zors::toParts(std::span(reinterpret_cast<const Zor16sc*>(frames.data()), got), left, right);
      toFloat(left, block[0]);
      toFloat(right, block[1]);
      return got;
    }
  }
  for (std::size_t c = 0; c < channels(); ++c) {
    split(frames, got, channels(), c, plane);
    toFloat(plane, block[c]);
  }
  return got;
}

std::size_t SoundReader::takeCodes(Planes& block, std::size_t wanted) {
  codes_.resize(wanted * channels());
  const sf_count_t bytes = sf_read_raw(file_.get(), codes_.data(), sf_count_t(codes_.size()));
  const std::size_t got = std::size_t(std::max<sf_count_t>(0, bytes)) / channels();
  block.setFrames(got);
  for (std::size_t c = 0; got > 0 && c < channels(); ++c) {
    split(codes_, got, channels(), c, codePlane_);
    if (encoding_ == Encoding::aLaw) {
      zors::fromALaw(codePlane_, block[c]);
    } else {
      zors::fromMuLaw(codePlane_, block[c]);
    }
  }
  return got;
}

bool SoundReader::read(Planes& block) {
  const std::size_t wanted = block.capacity();
  std::size_t got = 0;
  switch (encoding_) {
    case Encoding::pcm8:
    case Encoding::pcm16:
      got = take<short>(sf_readf_short, shorts_, shortPlane_, block, wanted);
      break;
    case Encoding::pcm24:
    case Encoding::pcm32:
      got = take<int>(sf_readf_int, ints_, intPlane_, block, wanted);
      break;
    case Encoding::aLaw:
    case Encoding::muLaw:
      got = takeCodes(block, wanted);
      break;
    default:
      got = take<float>(sf_readf_float, floats_, floatPlane_, block, wanted);
  }
  done_ += std::int64_t(got);
  if (got == 0) {
    if (const int error = sf_error(file_.get()); error != SF_ERR_NO_ERROR) {
      throw Failure(Exit::input, fmt::format("{}: after {} frames: {}", name_, done_, sf_strerror(file_.get())));
    }
    if (frames_ > done_ && !partial_) {
      throw Failure(Exit::input,
                    fmt::format("{}: is truncated: {} of {} frames; --partial takes them", name_, done_, frames_));
    }
    return false;
  }
  if (nan_ == NaN::refuse && (encoding_ >= Encoding::float32)) refuseNaN(block);
  return true;
}

void SoundReader::refuseNaN(const Planes& block) const {
  for (std::size_t c = 0; c < block.channels(); ++c) {
    const auto plane = block[c];
    bool finite = true;
    for (const float x : plane) finite &= std::fabs(x) <= std::numeric_limits<float>::max();
    if (finite) continue;
    const auto bad = std::ranges::find_if(plane, [](float x) { return !std::isfinite(x); }) - plane.begin();
    throw Failure(Exit::input, fmt::format("{}: sample {} of channel {} is no finite number", name_,
                                           done_ - std::int64_t(plane.size()) + bad, c + 1));
  }
}

void SoundReader::requireSound() const {
  if (done_ == 0) throw Failure(Exit::input, name_ + ": holds no sound");
}

SoundWriter::SoundWriter(const std::string& path, const SoundShape& shape) : out_(path), shape_(shape) {
  if (shape_.encoding == Encoding::other) shape_.encoding = Encoding::pcm16;
  SF_INFO info{};
  info.samplerate = shape_.rate;
  info.channels = int(shape_.channels);
  const int container = containerOf(path, shape_);
  const auto allowed = [&](Encoding encoding) {
    for (const int subtype : subtypesOf(encoding)) {
      info.format = container | subtype;
      if (sf_format_check(&info)) return true;
    }
    return false;
  };
  if (!allowed(shape_.encoding)) {
    if (shape_.strictEncoding) {
      throw Failure(Exit::usage, fmt::format("{}: such a file cannot hold {} channels of {} samples at {} Hz", path,
                                             shape_.channels, nameOf(shape_.encoding), shape_.rate));
    }
    shape_.encoding = bitsOf(shape_.encoding) == 0 || bitsOf(shape_.encoding) > 16 ? Encoding::pcm24 : Encoding::pcm16;
    if (!allowed(shape_.encoding)) {
      throw Failure(Exit::usage, fmt::format("{}: such a file cannot hold {} channels at {} Hz", path, shape_.channels,
                                             shape_.rate));
    }
  }
  errno = 0;
  file_.reset(sf_open_fd(out_.descriptor(), SFM_WRITE, &info, SF_FALSE));
  if (!file_) {
    if (errno) out_.fail(errno);
    throw Failure(Exit::output, path + ": " + sf_strerror(nullptr));
  }
  if (container == SF_FORMAT_RF64) sf_command(file_.get(), SFC_RF64_AUTO_DOWNGRADE, nullptr, SF_TRUE);
  if (const int bits = bitsOf(shape_.encoding); shape_.dither && bits > 0 && bits <= 24) {
    const float half = std::ldexp(0.5f, 1 - bits);
    for (std::size_t i = 0; i < 2 * shape_.channels; ++i) {
      dither_.emplace_back(zors::RandomUniform<float>::Options{.low = -half, .high = half, .seed = Zor32u(i + 1)});
    }
  }
}

// Dithered, and counted where it is beyond full scale.
std::span<const float> SoundWriter::prepared(std::span<const float> plane, std::size_t channel, int bits) {
  if (!dither_.empty()) {
    noise_.resize(plane.size());
    dithered_.assign(plane.begin(), plane.end());
    for (std::size_t i = 0; i < 2; ++i) {  // two uniform numbers: a triangle, two steps wide
      dither_[2 * channel + i].generate(noise_);
      zors::add(noise_, dithered_, dithered_);
    }
    plane = dithered_;
  }
  const float step = std::ldexp(1.0f, 1 - bits);
  const float low = -1 - step / 2, high = 1 - step / 2;
  const auto [least, most] = zors::minMax(plane);
  if (least < low || most > high) {
    clipped_ += std::ranges::count_if(plane, [&](float x) { return x < low || x > high; });
  }
  return plane;
}

void SoundWriter::check(sf_count_t written, sf_count_t wanted) const {
  if (written == wanted) return;
  const int error = errno;
  out_.fail(error == EAGAIN ? 0 : error);
}

// 8 and 16 bits.
void SoundWriter::writeIntegers(const Planes& block) {
  const int bits = bitsOf(shape_.encoding);
  const std::size_t channels = block.channels(), frames = block.frames();
  shortPlanes_.resize(channels);
  for (std::size_t c = 0; c < channels; ++c) {
    auto& plane = shortPlanes_[c];
    plane.resize(frames);
    zors::convert(prepared(block[c], c, bits), plane, {.scaleFactor = 1 - bits});
    if (bits < 16) {
      zors::atLeast(plane, plane, Zor16s(-(1 << (bits - 1))));
      zors::atMost(plane, plane, Zor16s((1 << (bits - 1)) - 1));
      for (auto& x : plane) x = Zor16s(x * (1 << (16 - bits)));
    }
  }
  shorts_.resize(channels * frames);
  const Zor16s* from = shorts_.data();
  if (channels == 1) {
    from = shortPlanes_[0].data();
  } else if (channels == 2) {
    zors::fromParts(shortPlanes_[0], shortPlanes_[1], std::span(reinterpret_cast<Zor16sc*>(shorts_.data()), frames));
  } else {
    for (std::size_t c = 0; c < channels; ++c) {
      for (std::size_t i = 0; i < frames; ++i) shorts_[i * channels + c] = shortPlanes_[c][i];
    }
  }
  check(sf_writef_short(file_.get(), from, sf_count_t(frames)), sf_count_t(frames));
}

// 24 and 32 bits. A float has 24 bits; the word keeps them high.
void SoundWriter::writeWide(const Planes& block) {
  const int bits = bitsOf(shape_.encoding);
  const std::size_t channels = block.channels(), frames = block.frames();
  intPlane_.resize(frames);
  ints_.resize(channels * frames);
  for (std::size_t c = 0; c < channels; ++c) {
    zors::convert(prepared(block[c], c, bits), intPlane_, {.scaleFactor = 1 - bits});
    if (bits == 24) {
      zors::atLeast(intPlane_, intPlane_, Zor32s(-(1 << 23)));
      zors::atMost(intPlane_, intPlane_, Zor32s((1 << 23) - 1));
    }
    const Zor32s unit = bits == 24 ? 256 : 1;
    for (std::size_t i = 0; i < frames; ++i) ints_[i * channels + c] = intPlane_[i] * unit;
  }
  check(sf_writef_int(file_.get(), ints_.data(), sf_count_t(frames)), sf_count_t(frames));
}

void SoundWriter::writeFloats(const Planes& block) {
  const std::size_t channels = block.channels(), frames = block.frames();
  floats_.resize(channels * frames);
  for (std::size_t c = 0; c < channels; ++c) {
    const auto plane = block[c];
    for (std::size_t i = 0; i < frames; ++i) floats_[i * channels + c] = plane[i];
  }
  check(sf_writef_float(file_.get(), floats_.data(), sf_count_t(frames)), sf_count_t(frames));
}

void SoundWriter::writeCodes(const Planes& block) {
  const std::size_t channels = block.channels(), frames = block.frames();
  codePlane_.resize(frames);
  codes_.resize(channels * frames);
  for (std::size_t c = 0; c < channels; ++c) {
    const auto plane = prepared(block[c], c, 16);
    if (shape_.encoding == Encoding::aLaw) {
      zors::toALaw(plane, codePlane_);
    } else {
      zors::toMuLaw(plane, codePlane_);
    }
    for (std::size_t i = 0; i < frames; ++i) codes_[i * channels + c] = codePlane_[i];
  }
  check(sf_write_raw(file_.get(), codes_.data(), sf_count_t(codes_.size())), sf_count_t(codes_.size()));
}

void SoundWriter::write(const Planes& block) {
  if (block.frames() == 0) return;
  errno = 0;
  switch (shape_.encoding) {
    case Encoding::pcm8:
    case Encoding::pcm16:
      return writeIntegers(block);
    case Encoding::pcm24:
    case Encoding::pcm32:
      return writeWide(block);
    case Encoding::aLaw:
    case Encoding::muLaw:
      return writeCodes(block);
    default:
      return writeFloats(block);
  }
}

void SoundWriter::finish() {
  errno = 0;
  if (sf_close(file_.release()) != 0) out_.fail(errno);
  out_.finish();
}

}  // namespace tool
