#include "support/Processes.h"

#include <array>
#include <cstdio>
#include <gtest/gtest.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace folvane::test {

namespace {

constexpr unsigned kLongestLife = 60;

struct Pipe {
  Pipe() {
    if (pipe(ends.data()) != 0) throw std::runtime_error("no pipe");
  }
  int ReadingEnd() const { return ends[0]; }
  int WritingEnd() const { return ends[1]; }
  std::array<int, 2> ends{};
};

QByteArray ReadAll(int end) {
  QByteArray all;
  std::array<char, 4096> some{};
  for (ssize_t count = 0; (count = read(end, some.data(), some.size())) > 0;) all.append(some.data(), count);
  return all;
}

// Nothing of the process that it copies may be closed or freed: connections of that are still in use.
[[noreturn]] void WorkInCopy(const std::function<QByteArray()>& work, int start, int answer) {
  alarm(kLongestLife);
  ReadAll(start);
  try {
    const QByteArray text = work();
    const bool isTold = write(answer, text.constData(), size_t(text.size())) == text.size();
    std::fflush(stdout);
    _exit(isTold && !testing::Test::HasFailure() ? 0 : 1);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "a work ended: %s\n", error.what());
    _exit(1);
  }
}

}  // namespace

QByteArrayList AtOnce(const std::vector<std::function<QByteArray()>>& works) {
  struct Worker {
    pid_t process;
    int answer;
  };
  std::vector<Worker> workers;
  const Pipe start;  // its end is the sign to begin
  std::fflush(stdout);
  for (const std::function<QByteArray()>& work : works) {
    const Pipe answer;
    const pid_t process = fork();
    if (process == 0) {
      close(start.WritingEnd());
      WorkInCopy(work, start.ReadingEnd(), answer.WritingEnd());
    }
    close(answer.WritingEnd());
    workers.push_back({process, answer.ReadingEnd()});
  }
  close(start.ReadingEnd());
  close(start.WritingEnd());
  QByteArrayList answers;
  for (const Worker& worker : workers) {
    answers << ReadAll(worker.answer);
    close(worker.answer);
    int status = 0;
    EXPECT_EQ(waitpid(worker.process, &status, 0), worker.process);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "a process did not end well";
  }
  return answers;
}

}  // namespace folvane::test
