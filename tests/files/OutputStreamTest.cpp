#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>

#include "shell/files/TextOutputStream.h"
#include "tests/support/Programs.h"
#include "tests/support/RuntimeTest.h"

namespace veldrin::test {
namespace {

/// The error number of the `IOException` that the call raises, or 0.
template <class Call>
std::int32_t errorOf(Call&& call) {
  try {
    call();
  } catch (const Raised& raised) {
    EXPECT_TRUE(RuntimeObjectIsa(raised.exception.get(), IOException::__Lookup()));
    return raised.exception->ErrorNumber;
  }
  return 0;
}

class OutputStreamTest : public RuntimeTest {
 protected:
  [[nodiscard]] Ref<FolderItem> item(const std::string& name) const {
    return FolderItem::atPath(String((folder / name).string()));
  }
  [[nodiscard]] std::string contentOf(const std::string& name) const {
    return readFile(folder / name);
  }

  const TemporaryFolder temporary;
  const std::filesystem::path& folder = temporary.path;
};

TEST_F(OutputStreamTest, LinesEndWithTheDelimiter) {
  const Ref<FolderItem> file = item("lines.ics");
  const Ref<TextOutputStream> stream = TextOutputStream::Create(file);
  EXPECT_TRUE(stream->UseIOExceptions);
  stream->WriteLine("BEGIN:VCALENDAR"_s);
  stream->WriteLine(String());
  stream->Write("no "_s);
  stream->Write("end"_s);
  EXPECT_EQ(contentOf("lines.ics"), "BEGIN:VCALENDAR\r\n\r\nno end");  // without a buffer
  stream->Delimiter = ""_s;
  stream->WriteLine(String());
  stream->Delimiter = String(std::string_view("\0|", 2));
  stream->WriteLine("!"_s);
  stream->Close();
  EXPECT_EQ(contentOf("lines.ics"), std::string("BEGIN:VCALENDAR\r\n\r\nno end!\0|", 28));
  EXPECT_EQ(errorOf([&] { stream->WriteLine("late"_s); }), EBADF);
}

using SavingTest = WindowTest;

TEST_F(SavingTest, NoDescriptorLeaksOrIsInherited) {
  const auto open = [] {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
  };
  const auto before = open();
  for (const char* const path : {"/dev/null", "/dev/null", "/dev/full", "/"}) {
    toolkit.saveAnswers.emplace_back(FolderItem::atPath(String(path)));
    raisedBy([&] { person->press("GenerateButton"); });
    EXPECT_EQ(open(), before) << path;
  }
  const int next = ::dup(0);
  ::close(next);
  const auto file = FolderItem::atPath("/dev/null"_s)->create();
  EXPECT_EQ(::fcntl(next, F_GETFD), FD_CLOEXEC);
  EXPECT_EQ(::fcntl(next, F_GETFL) & (O_ACCMODE | O_NONBLOCK), O_WRONLY);
}

/// Whether the thread waits in the OS and uses no processor.
bool isAsleep(pid_t thread) {
  const std::string stat = readFile("/proc/self/task/" + std::to_string(thread) + "/stat");
  return stat.substr(stat.rfind(')')).starts_with(") S");
}

TEST_F(OutputStreamTest, WritesSleepUntilAFullNonblockingPipeHasRoom) {
  std::array<int, 2> ends{};
  ASSERT_EQ(::pipe2(ends.data(), O_NONBLOCK), 0);
  ::fcntl(ends[0], F_SETFL, 0);
  std::string arrived;
  bool hasSlept = false;
  const pid_t writing = ::gettid();
  std::thread reader([&] {
    // Starts reading when the pipe is full and the writer sleeps, or has not slept in a second.
    for (pollfd writer{ends[1], POLLOUT, 0}; ::poll(&writer, 1, 0) == 1;) std::this_thread::yield();
    for (int tries = 0; tries < 1000 && !hasSlept; ++tries) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
      hasSlept = isAsleep(writing);
    }
    std::array<char, 4096> piece{};
    for (ssize_t count; (count = ::read(ends[0], piece.data(), piece.size())) > 0;) {
      arrived.append(piece.data(), static_cast<std::size_t>(count));
    }
  });
  std::string sent;
  {
    const auto file = openDescriptor(ends[1]);
    for (std::int32_t line = 0; line < 200; ++line) {
      const std::string text(1000 + static_cast<std::size_t>(line), 'x');
      EXPECT_EQ(file->write(text, "\r\n"), 0);
      sent += text + "\r\n";
    }
  }
  reader.join();
  EXPECT_TRUE(hasSlept);
  ::close(ends[0]);
  EXPECT_TRUE(arrived == sent) << arrived.size() << " of " << sent.size();
}

TEST_F(OutputStreamTest, CreateRaisesIfTheFileCannotBeCreated) {
  EXPECT_EQ(raisedBy([] { TextOutputStream::Create(nullptr); }), "NilObjectException");
  const Ref<MemoryItem> memory = New<MemoryItem>();
  memory->errorOfCreate = EROFS;
  std::ofstream(folder / "file") << "kept";
  ASSERT_EQ(::mkfifo((folder / "unread").c_str(), 0600), 0);
  const struct {
    Ref<FolderItem> item;
    std::int32_t error;
  } rows[] = {{memory, EROFS},
              {item("missing/file.ics"), ENOENT},
              {item("file/below.ics"), ENOTDIR},
              {item("."), EISDIR},
              {item("unread"), ENXIO},
              {item(std::string("file\0.ics", 9)), EINVAL},
              {item(std::string(300, 'x')), ENAMETOOLONG},
              {FolderItem::atPath(String()), ENOENT}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.item->AbsolutePath().view());
    EXPECT_EQ(errorOf([&] { TextOutputStream::Create(row.item); }), row.error);
    EXPECT_EQ(row.item->LastErrorCode, row.error);
  }
  EXPECT_EQ(contentOf("file"), "kept");
  std::filesystem::create_directory(folder / "missing");
  TextOutputStream::Create(rows[1].item);
  EXPECT_EQ(rows[1].item->LastErrorCode, 0);
}

TEST_F(OutputStreamTest, TheLineThatFailsRaises) {
  const Ref<MemoryItem> memory = New<MemoryItem>();
  memory->linesUntilFull = 2;
  const Ref<TextOutputStream> stream = TextOutputStream::Create(memory);
  stream->WriteLine("one"_s);
  stream->WriteLine("two"_s);
  EXPECT_FALSE(stream->WriteError());
  EXPECT_EQ(errorOf([&] { stream->WriteLine("three"_s); }), ENOSPC);
  EXPECT_EQ(*memory->content, "one\r\ntwo\r\n");
  EXPECT_TRUE(stream->WriteError());
  EXPECT_EQ(errorOf([&] { stream->Flush(); }), ENOSPC);
  EXPECT_EQ(errorOf([&] { static_cast<void>(stream->Handle(0)); }), ENOSPC);
  stream->UseIOExceptions = false;
  EXPECT_EQ(errorOf([&] { stream->WriteLine("four"_s); }), 0);
  EXPECT_EQ(stream->LastErrorCode(), ENOSPC);
}

TEST_F(OutputStreamTest, ExistingFileIsEmptiedInPlace) {
  std::ofstream(folder / "old.ics") << "a text that is longer than the new one";
  std::filesystem::create_hard_link(folder / "old.ics", folder / "link.ics");
  std::filesystem::create_symlink("old.ics", folder / "symbolic.ics");
  ASSERT_EQ(::chmod((folder / "old.ics").c_str(), 0604), 0);
  TextOutputStream::Create(item("symbolic.ics"))->WriteLine("new"_s);
  EXPECT_EQ(contentOf("link.ics"), "new\r\n");
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "symbolic.ics"));
  struct stat status {};
  ASSERT_EQ(::stat((folder / "old.ics").c_str(), &status), 0);
  EXPECT_EQ(status.st_nlink, 2U);
  EXPECT_EQ(status.st_mode & 07777U, 0604U);
}

TEST_F(OutputStreamTest, APartlyWrittenLineRaisesTheErrorOfTheRest) {
  for (const std::size_t length : {5U, 5000U}) {
    const std::string line(length, 'x');
    // The limit lies in the text, before the delimiter, in the delimiter, or after it.
    for (const std::size_t limit : {length - 2, length, length + 1, length + 2}) {
      const Ref<TextOutputStream> stream = TextOutputStream::Create(item("part.ics"));
      rlimit before{};
      ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
      const rlimit small{limit, before.rlim_max};
      ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
      const std::int32_t error = errorOf([&] { stream->WriteLine(String(line)); });
      // Restored before a check fails, because its report may be written to a file.
      ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
      EXPECT_EQ(error, limit < length + 2 ? EFBIG : 0) << limit;
      EXPECT_EQ(contentOf("part.ics"), (line + "\r\n").substr(0, limit));
    }
  }
}

TEST_F(OutputStreamTest, DisplayedPathIsAbsolute) {
  EXPECT_EQ(text(FolderItem::atPath("/tmp/a b.ics"_s)->AbsolutePath()), "/tmp/a b.ics");
  EXPECT_EQ(text(FolderItem::atPath("here.ics"_s)->AbsolutePath()),
            (std::filesystem::current_path() / "here.ics").string());
}

}  // namespace
}  // namespace veldrin::test
