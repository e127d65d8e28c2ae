#include "support/file.h"

#include <cerrno>
#include <chrono>
#ifdef _WIN32
#include <future>
#include <windows.h>
#else
#include <csignal>
#endif

#include "own_folder.h"
#include "support/command.h"

namespace {

struct File : OwnFolder {
  const std::string path = "mine.txt";
  FileReplacement first, second;

  bool replace(const std::string &name, const char *text, bool complete = true) {
    if (!file_replace_begin(&first, name.c_str(), false)) return false;
    std::fputs(text, first.stream);
    return file_replace_end(&first, complete);
  }
  // Makes a file as old as one that a killed program left.
  static void age(const std::string &name) {
    fs::last_write_time(name, fs::file_time_type::clock::now() - std::chrono::hours(2));
  }
};

TEST_F(File, IsReplacedWholeOrNotAtAll) {
  EXPECT_TRUE(replace(path, "first"));
  EXPECT_TRUE(replace(path, "second"));
  EXPECT_FALSE(replace(path, "third", false));
  EXPECT_FALSE(replace(folder.string(), "a folder"));
  EXPECT_FALSE(replace("none/file", ""));
  EXPECT_TRUE(replace("\u0436\u0444", "")); // UTF-8 on every system
  EXPECT_TRUE(fs::remove(u8"\u0436\u0444"));
  fs::permissions(path, fs::perms::owner_read);
  EXPECT_FALSE(replace(path, "fourth"));
  EXPECT_EQ(errno, EACCES);
  fs::permissions(path, fs::perms::owner_all); // or it may not be removed
  EXPECT_EQ(contents(path), "second");
  EXPECT_EQ(files(), path + " ");
}

TEST_F(File, ProgramsHaveTheirOwnTemporaryFiles) {
  ASSERT_TRUE(file_replace_begin(&first, path.c_str(), false));
  ASSERT_TRUE(file_replace_begin(&second, path.c_str(), true));
  std::fputs("first", first.stream);
  EXPECT_TRUE(file_replace_end(&second, true));
  EXPECT_TRUE(file_replace_end(&first, true));
  EXPECT_EQ(contents(path), "first");
  std::ofstream(path + ".new-2") << "of a program that may still be running";
  for (const std::string &killed : {path + ".new-1", path + "s.new-1"}) {
    std::ofstream(killed) << "of a killed program";
    age(killed);
  }
  EXPECT_TRUE(replace(path, "again"));
  EXPECT_EQ(files(), path + " " + path + ".new-2 " + path + "s.new-1 "); // only its own
}

TEST_F(File, NamesAreFreeAndFoldersAreNotOpened) {
  std::ofstream("old-1.dat") << "taken";
  fs::create_directory("old-2.dat");
  EXPECT_EQ(file_unused_name("old", ".dat"), "old-3.dat");
  EXPECT_EQ(file_open("old-2.dat"), nullptr);
  EXPECT_EQ(errno, EISDIR);
}

#ifdef _WIN32

TEST_F(File, RenamingWaitsForOtherPrograms) {
  EXPECT_TRUE(replace(path, "first"));
  HANDLE held =
      CreateFileW(L"mine.txt", GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  EXPECT_FALSE(replace(path, "second"));
  EXPECT_EQ(errno, EACCES);
  const auto closed = std::async(std::launch::async, [held] {
    Sleep(120);
    CloseHandle(held);
  });
  EXPECT_TRUE(replace(path, "third"));
  EXPECT_EQ(files(), path + " ");
}

#else

TEST_F(File, KeepsItsPermissionsAndLinks) {
  fs::create_symlink(path, "link");
  EXPECT_TRUE(replace("link", "first")); // which leads nowhere yet
  fs::permissions(path, fs::perms::owner_write);
  EXPECT_TRUE(replace("link", "second"));
  EXPECT_EQ(fs::symlink_status(path).permissions(), fs::perms::owner_write);
  EXPECT_TRUE(fs::is_symlink("link"));
}

TEST_F(File, TheDataFolderIsMade) {
  setenv("XDG_DATA_HOME", folder.c_str(), 1);
  EXPECT_EQ(file_data_folder(), folder / "vorel");
  EXPECT_TRUE(fs::is_directory("vorel"));
}

TEST_F(File, HolesAreFound) {
  EXPECT_TRUE(replace(path, "first"));
  FILE *stream = file_open(path.c_str());
  EXPECT_FALSE(file_has_holes(stream));
  fs::resize_file(path, 1 << 20);
  EXPECT_TRUE(file_has_holes(stream));
  std::fclose(stream);
}

TEST_F(File, CommandsGetDefaultSignalsAndATimeout) {
  file_ignore_size_signal();
  std::signal(SIGPIPE, SIG_IGN);
  for (const std::string signal : {"XFSZ", "PIPE"})
    EXPECT_TRUE(command_run("ulimit -c 0; kill -s " + signal + " $$; echo >survived", 60000));
  EXPECT_FALSE(command_run("sleep 60", 50));
  EXPECT_EQ(files(), "");
}

// Its own looked like a leftover while it was stopped.
TEST_F(File, AStoppedProgramLeavesAnothersTemporaryFile) {
  ASSERT_TRUE(file_replace_begin(&first, path.c_str(), false));
  age(path + ".new-1");
  ASSERT_TRUE(file_replace_begin(&second, path.c_str(), false));
  EXPECT_FALSE(file_replace_end(&first, true));
  EXPECT_EQ(errno, EBUSY);
  EXPECT_TRUE(file_replace_end(&second, true));
}

#endif

} // namespace
