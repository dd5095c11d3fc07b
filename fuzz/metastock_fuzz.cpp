// Both stores of the charting package of any content, quotes and history of any numbers into them,
// and a data channel that says whatever it likes to the download.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "base/bytes.h"
#include "base/inflate.h"
#include "metastock/download.h"
#include "support/memory_platform.h"
#include "support/wire.h"

namespace {

using metastock::Bar;

constexpr std::string_view kCodes[] = {"AAA", "BBBB", "", "I IB"};

void Check(bool holds) {
  if (!holds) std::abort();
}

/// Takes bytes off the front of the input; zeros once there are none left.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size)
      : rest_(reinterpret_cast<const char*>(data), size) {}

  [[nodiscard]] bool empty() const { return rest_.empty(); }
  std::string Bytes(std::size_t count) {
    const std::string bytes(rest_.substr(0, count));
    rest_.remove_prefix(bytes.size());
    return bytes;
  }
  unsigned Byte() {
    const std::string byte = Bytes(1);
    return byte.empty() ? 0 : static_cast<unsigned char>(byte[0]);
  }
  /// Behind its length, in two bytes.
  std::string Text() {
    const std::size_t low = Byte();
    return Bytes(low + 256 * Byte());
  }
  std::array<float, 7> Floats() {
    const std::string bytes = Bytes(28);
    std::array<float, 7> floats{};
    for (std::size_t i = 0; i < floats.size(); ++i) (void)base::ReadField(bytes, i * 4, floats[i]);
    return floats;
  }

 private:
  std::string_view rest_;
};

std::string ReadAll(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

// One bar is written and no other touched; numbers of the last bar stand in the first 22 bytes.
void CheckWritten(std::string_view before, std::string_view after) {
  constexpr std::size_t kNumbers = 22, kWidest = 28;
  Check(after.size() >= before.size() && after.size() <= 32768 * kWidest);
  if (before.size() <= kNumbers) return;
  const auto differs = [&](std::size_t i) { return before[i] != after[i]; };
  std::size_t first = kNumbers, last = before.size();
  while (first < last && !differs(first)) ++first;
  while (last > first && !differs(last - 1)) --last;
  Check(last - first <= kWidest);
}

class Bridge {
 public:
  explicit Bridge(unsigned flags) {
    // Some routines take a directory's name up to a blank only.
    const std::string suffix = (flags & 1U) != 0 ? " x" : "";
    stores_.MasterDir.assign(dir_.Path("d") + suffix);
    stores_.EMasterDir.assign(dir_.Path("e") + suffix);
    for (const char* name : {"d", "e", "d x", "e x"}) {
      std::filesystem::create_directory(dir_.Path(name));
    }
    download_.steps.Preguntar = [this](std::string_view) {
      ++questions_;
      return line_;
    };
  }
  ~Bridge() {
    download_.Cancelar();
    platform_.avanzar(3000);
    Check(platform_.running_timers() == 0);
    CheckRequests();
    for (const auto& entry : std::filesystem::directory_iterator(dir_.path())) {
      const std::string name = entry.path().filename().string();
      Check(entry.is_directory() ? name.size() <= 3 : name == "MSI.TMP" || name == "MSD.TMP");
    }
  }

  void Step(Input& input) {
    const unsigned op = input.Byte();
    const unsigned how = op >> 3U;
    switch (op & 7U) {
      case 0:
        return WriteBoth("MASTER", input.Text());
      case 1:
        return WriteBoth("EMASTER", input.Text());
      case 2:
        return WriteBoth("F" + std::to_string(how) + ".DAT", input.Text());
      case 3:
        return Load(how);
      case 4:
        return Quote(kCodes[how & 3U], input.Floats());
      case 5:
        return Row(how, input);
      case 6:
        return Answer(how, input.Text());
      default:
        return Session(how, input);
    }
  }

 private:
  support::FakeSocket& Peer() { return *platform_.sockets.front(); }

  void WriteBoth(const std::string& name, const std::string& content) const {
    for (const char* store : {"d/", "e/", "d x/", "e x/"}) dir_.Write(store + name, content);
  }

  void Load(unsigned selected) {
    if (++loads_ > 4) return;
    stores_.LoadMasterDir();
    stores_.LoadEMasterDir();
    for (const int count : {stores_.MasterCount, stores_.EMasterCount}) {
      Check(count >= 0 && count <= metastock::Stores::kMaxEntries);
    }
    for (std::size_t i = 1; i <= 5; ++i) {
      stores_.MasterSelected[i] = stores_.EMasterSelected[i] =
          static_cast<std::int16_t>(selected >> (i - 1) & 1U);
    }
  }

  void Quote(std::string_view code, const std::array<float, 7>& numbers) {
    store::Instrumento record;
    record.Codigo.assign(code);
    record.Fecha = numbers[0];
    record.Hora = numbers[1];
    record.Apertura = numbers[2];
    record.Maximo = numbers[3];
    record.Minimo = numbers[4];
    record.Ultimo = numbers[5];
    record.Volumen = numbers[6];
    const std::int16_t slot = instruments_.GuardarMaestro(record);
    if (slot > 0) bars_.ActualizarBarras(slot);
  }

  void Row(unsigned how, Input& input) {
    const int byte = static_cast<int>(input.Byte());
    const int entry = byte == 255 ? stores_.kMaxEntries + 1 : byte - 1;
    const auto slot = static_cast<std::size_t>(std::clamp(entry, 0, stores_.kMaxEntries));
    const bool daily = how % 3 == 2;
    const auto file = daily ? stores_.DailyFile(stores_.MasterTable[slot].FileNumber,
                                                metastock::Cut::single_blank)
                            : stores_.IntradayFile(stores_.EMasterTable[slot].FileNumber,
                                                   metastock::Cut::single_blank);
    const std::string before = ReadAll(file);
    const auto [date, time, open, high, low, close, volume] = input.Floats();
    Bar bar{date, time, open, high, low, close, volume};
    if (daily) {
      bars_.UpdateDaily(entry, bar);
    } else if (how % 3 == 1) {
      bars_.UpdateHistoricIntraday(entry, bar);
    } else {
      bars_.UpdateLiveIntraday(entry, bar);
    }
    CheckWritten(before, ReadAll(file));
  }

  void Answer(unsigned how, std::string text) {
    const std::string_view code = kCodes[how >> 3U & 3U];
    switch (how & 7U) {
      case 0:
        break;
      case 1:
        text = support::Frame(text);
        break;
      case 2:
        text = support::Frame(base::Compress(text));
        break;
      case 3:
        text = "DATA:" + support::Pad(code, 7) + "#END" + text;
        break;
      default: {
        // Rows over and over, so that slices and long replies come into play.
        const std::size_t times = (how & 1U) != 0 ? 1 : Times(text.size());
        const std::string piece = text;
        const bool daily = (how & 2U) != 0;
        text = (daily ? "DATD:" : "DATA:") + support::Pad(code, 7) + "????";
        if (!daily) text += std::string(28, 's');
        for (std::size_t i = 0; i < times; ++i) text += piece;
        text = support::Frame(base::Compress(text));
      }
    }
    Peer().Arrive(text);
  }

  std::size_t Times(std::size_t size) {
    const std::size_t times =
        std::min<std::size_t>(rows_left_, 2000) * 28 / std::max<std::size_t>(size, 28);
    rows_left_ -= std::min(rows_left_, times * (size / 28 + 1));
    return times;
  }

  void Session(unsigned how, Input& input) {
    switch (how & 7U) {
      case 0:
        return download_.Actualizar();
      case 1:
        return Peer().Accept();
      case 2:
        return Peer().PeerClose();
      case 3:
        return Peer().Fail("roto");
      case 4:
        return download_.ReanudarDescarga();
      case 5:
        return download_.Cancelar();
      case 6:
        line_ = input.Text();
        return;
      default:
        ++moments_;
        return platform_.avanzar(static_cast<int>(300 + 300 * (how >> 3U)));
    }
  }

  void CheckRequests() {
    // At most a hundred a second, and one question for each.
    const std::size_t most = 100 * (moments_ * 2 + 5);
    Check(Peer().writes.size() <= most && questions_ <= most);
    for (const std::string& write : Peer().writes) {
      Check(write.starts_with("DATA:") || write.starts_with("DATD:"));
      Check(write.ends_with("\xFF\xFE") && write.size() < 100);
    }
  }

  const support::TempDir dir_;
  const base::ProgramDir program_{dir_.path()};
  support::MemoryPlatform platform_;
  store::InstrumentStore instruments_;
  metastock::Stores stores_;
  metastock::Bars bars_{stores_, instruments_, platform_};
  metastock::Form1 form_{platform_};
  std::int16_t FaseCierre_ = 0;
  const std::unique_ptr<platform::Socket> socket_ = platform_.MakeSocket({
      .connected = [this] { download_.DatosConectados(); },
      .data = [this] { download_.OnDataArrival(); },
      .closed = [this] { download_.OnDataClose(); },
      .error = [this](const std::string&) { download_.DatosFallidos(); },
  });
  metastock::Download download_{platform_, program_, stores_, bars_, form_, *socket_, FaseCierre_};
  std::string line_ = "980931";
  int loads_ = 0;
  std::size_t rows_left_ = 4000, questions_ = 0, moments_ = 0;
};

}  // namespace

// The first byte tells of the directories. Each step: a byte with its kind in the low three bits,
// then what that kind takes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  Bridge bridge(input.Byte());
  for (int steps = 0; !input.empty() && steps < 200; ++steps) bridge.Step(input);
  return 0;
}
