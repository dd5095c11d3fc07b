#include "services/manual.h"

#include <array>
#include <filesystem>
#include <gtest/gtest.h>

#include "support/temp_dir.h"

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPicture("\x89PNG\0\r\n", 7);

struct Manual : testing::Test {
  std::string Write() const {
    return services::EscribirManual(base::ProgramDir(dir.path()), files);
  }

  support::TempDir dir;
  std::array<platform::ShippedFile, 2> files{
      {{"index.html", "<h1>Guía</h1>"}, {"a.png", kPicture}}};
};

TEST_F(Manual, WritesWhatIsMissingOrOtherAndNothingElse) {
  EXPECT_EQ(Write(), "file://" + dir.path() + "/Manual/");
  EXPECT_EQ(dir.Read("Manual/index.html"), "<h1>Guía</h1>");
  EXPECT_EQ(dir.Read("Manual/a.png"), kPicture);

  const fs::file_time_type long_ago{};
  fs::last_write_time(dir.Path("Manual/a.png"), long_ago);
  dir.Write("Manual/index.html", "<h1>Guía</h1> of before");
  dir.Write("Manual/notas.txt", "mine");
  (void)Write();
  EXPECT_EQ(dir.Read("Manual/index.html"), "<h1>Guía</h1>");
  EXPECT_EQ(dir.Read("Manual/notas.txt"), "mine");
  EXPECT_EQ(fs::last_write_time(dir.Path("Manual/a.png")), long_ago);
}

TEST_F(Manual, FollowsNoLinkAndStandsNoOtherThingInItsPlace) {
  dir.Write("elsewhere/index.html", "other");
  fs::create_symlink(dir.Path("elsewhere"), dir.Path("Manual"));
  (void)Write();
  fs::remove(dir.Path("Manual"));
  fs::create_directory(dir.Path("Manual"));
  fs::create_symlink(dir.Path("elsewhere/index.html"), dir.Path("Manual/index.html"));
  fs::create_directory(dir.Path("Manual/a.png"));
  (void)Write();
  EXPECT_EQ(dir.Read("elsewhere/index.html"), "other");
  EXPECT_FALSE(dir.Has("elsewhere/a.png"));

  fs::remove_all(dir.Path("Manual"));
  dir.Write("Manual", "a file");
  EXPECT_EQ(Write(), "file://" + dir.path() + "/Manual/");
  EXPECT_EQ(dir.Read("Manual"), "a file");
}

TEST_F(Manual, TellsADirectoryOfAnyNameAsAnAddress) {
  const std::string odd = dir.Path("Año 1%20#?");
  fs::create_directory(odd);
  EXPECT_EQ(services::EscribirManual(base::ProgramDir(odd), files),
            "file://" + dir.path() + "/A%C3%B1o%201%2520%23%3F/Manual/");
}

}  // namespace
