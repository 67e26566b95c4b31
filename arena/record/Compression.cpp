#include "arena/record/Compression.h"

#include <zstd.h>

#include <array>
#include <new>

namespace arena {
namespace {

/// Level 3 is the library's own middle [measured: tests/arena/record/SizeTest].
constexpr int kLevel = 3;
/// 2^20 bytes are about a minute of twelve players to look back on; it bounds a reader's memory.
constexpr int kWindowLog = 20;

}  // namespace

struct Compressor::Stream {
  struct Free {
    void operator()(ZSTD_CCtx* stream) const { ZSTD_freeCCtx(stream); }
  };
  std::unique_ptr<ZSTD_CCtx, Free> context{ZSTD_createCCtx()};
};

Compressor::Compressor() : stream_(std::make_unique<Stream>()) {
  ZSTD_CCtx* const context = stream_->context.get();
  if (context == nullptr) throw std::bad_alloc();
  ZSTD_CCtx_setParameter(context, ZSTD_c_compressionLevel, kLevel);
  ZSTD_CCtx_setParameter(context, ZSTD_c_windowLog, kWindowLog);
}
Compressor::~Compressor() = default;
Compressor::Compressor(Compressor&&) noexcept = default;
Compressor& Compressor::operator=(Compressor&&) noexcept = default;

std::string Compressor::piece(std::string_view payload) {
  std::string piece;
  std::array<char, 4096> part{};
  ZSTD_inBuffer in{payload.data(), payload.size(), 0};
  for (;;) {
    ZSTD_outBuffer out{part.data(), part.size(), 0};
    const std::size_t left = ZSTD_compressStream2(stream_->context.get(), &out, &in, ZSTD_e_flush);
    // The parameters are valid, so nothing but memory can be wanting.
    if (ZSTD_isError(left) != 0) throw std::bad_alloc();
    piece.append(part.data(), out.pos);
    if (left == 0) return piece;
  }
}

struct Decompressor::Stream {
  struct Free {
    void operator()(ZSTD_DCtx* stream) const { ZSTD_freeDCtx(stream); }
  };
  std::unique_ptr<ZSTD_DCtx, Free> context{ZSTD_createDCtx()};
};

Decompressor::Decompressor() : stream_(std::make_unique<Stream>()) {
  if (stream_->context == nullptr) throw std::bad_alloc();
  ZSTD_DCtx_setParameter(stream_->context.get(), ZSTD_d_windowLogMax, kWindowLog);
}
Decompressor::~Decompressor() = default;
Decompressor::Decompressor(Decompressor&&) noexcept = default;
Decompressor& Decompressor::operator=(Decompressor&&) noexcept = default;

std::optional<std::string> Decompressor::payload(std::string_view piece, std::size_t most) {
  std::string payload;
  std::array<char, 4096> part{};
  ZSTD_inBuffer in{piece.data(), piece.size(), 0};
  for (;;) {
    ZSTD_outBuffer out{part.data(), part.size(), 0};
    const std::size_t left = ZSTD_decompressStream(stream_->context.get(), &out, &in);
    // Zero is the end of a stream: the match's stream has none.
    if (ZSTD_isError(left) != 0 || left == 0) return std::nullopt;
    payload.append(part.data(), out.pos);
    if (payload.size() > most) return std::nullopt;
    // With room left in PART, all that the input held has come out.
    if (in.pos == in.size && out.pos < part.size()) return payload;
  }
}

}  // namespace arena
