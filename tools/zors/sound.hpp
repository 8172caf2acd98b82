// Sound files and streams, in blocks of planes.
#pragma once

#include <sndfile.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "output_file.hpp"
#include "planes.hpp"
#include "zors.hpp"

namespace tool {

/// How a sample stands in a file.
enum class Encoding { pcm8, pcm16, pcm24, pcm32, float32, float64, aLaw, muLaw, other };
const char* nameOf(Encoding encoding);
/// Bits of integer samples, 0 of the others.
int bitsOf(Encoding encoding);

/// Frames in a block: what the caches hold.
std::size_t blockFrames(std::size_t channels);

struct CloseSound {
  void operator()(SNDFILE* file) const { sf_close(file); }
};
using SoundHandle = std::unique_ptr<SNDFILE, CloseSound>;

class SoundReader {
 public:
  enum class NaN { refuse, pass };

  /// "-" is the standard input. partial: a file that ends too early is read as far as it goes.
  explicit SoundReader(const std::string& path, bool partial = false, NaN nan = NaN::refuse);

  const std::string& name() const noexcept { return name_; }
  int rate() const noexcept { return info_.samplerate; }
  std::size_t channels() const noexcept { return std::size_t(info_.channels); }
  /// 0 where a stream does not tell.
  std::int64_t frames() const noexcept { return frames_; }
  Encoding encoding() const noexcept { return encoding_; }
  std::string formatName() const;

  /// The next block, of up to its capacity; false at the end.
  bool read(Planes& block);
  /// Fails where nothing at all was read.
  void requireSound() const;

 private:
  template <class T>
  std::size_t take(sf_count_t (*readFrames)(SNDFILE*, T*, sf_count_t), std::vector<T>& frames, std::vector<T>& plane,
                   Planes& block, std::size_t wanted);
  std::size_t takeCodes(Planes& block, std::size_t wanted);
  void refuseTruncated() const;
  void refuseNaN(const Planes& block) const;

  std::string name_;
  SF_INFO info_{};
  SoundHandle file_;
  Encoding encoding_ = Encoding::other;
  std::int64_t frames_ = 0, done_ = 0;
  bool partial_;
  NaN nan_;
  std::vector<short> shorts_, shortPlane_;
  std::vector<int> ints_, intPlane_;
  std::vector<float> floats_, floatPlane_;
  std::vector<Zor8u> codes_, codePlane_;
};

struct SoundShape {
  int rate;
  std::size_t channels;
  Encoding encoding;
  std::int64_t frames = 0;      ///< 0: unknown
  bool strictEncoding = false;  ///< the user asked for it: fail where the file cannot have it
  bool dither = false;
};

class SoundWriter {
 public:
  /// The kind of file follows the name; "-" is a stream of AU on the standard output.
  SoundWriter(const std::string& path, const SoundShape& shape);
  void write(const Planes& block);
  void finish();
  /// Samples beyond full scale, which were limited.
  std::int64_t clipped() const noexcept { return clipped_; }
  Encoding encoding() const noexcept { return shape_.encoding; }
  /// Where a command's words go: not into the sound.
  std::FILE* words() const noexcept { return out_.isStandardOutput() ? stderr : stdout; }

 private:
  std::span<const float> prepared(std::span<const float> plane, std::size_t channel, int bits);
  void writeIntegers(const Planes& block);
  void writeWide(const Planes& block);
  void writeFloats(const Planes& block);
  void writeCodes(const Planes& block);
  void check(sf_count_t written, sf_count_t wanted) const;

  OutputFile out_;
  SoundShape shape_;
  SoundHandle file_;
  std::int64_t clipped_ = 0;
  std::vector<zors::RandomUniform<float>> dither_;  // two for each channel
  std::vector<float> noise_, dithered_, floats_;
  std::vector<std::vector<Zor16s>> shortPlanes_;
  std::vector<Zor16s> shorts_;
  std::vector<Zor32s> intPlane_, ints_;
  std::vector<Zor8u> codePlane_, codes_;
};

}  // namespace tool
