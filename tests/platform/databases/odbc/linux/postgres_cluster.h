#pragma once

#include <pwd.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <random>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "fakes/temporary_folder.h"

namespace orvane {

// Below those that the system hands out by itself.
inline int RandomPort() {
  std::random_device device;
  return std::uniform_int_distribution(20'000, 32'000)(device);
}

// A PostgreSQL server of its own, without any rights, which keeps the contacts in "Talmix" for the
// user "orvane"; gone with the object.
class PostgresCluster {
 public:
  static constexpr const char* kPassword = "geheim;}";

  // Empty when there is no PostgreSQL on this machine.
  static std::filesystem::path Programs() {
    for (int version = 30; version > 9; --version) {
      std::filesystem::path folder = "/usr/lib/postgresql/" + std::to_string(version) + "/bin";
      if (std::filesystem::exists(folder / "postgres")) return folder;
    }
    return {};
  }

  explicit PostgresCluster(const std::string& script) {
    const auto account = folder_.Write("password", kPassword);
    const auto tables =
        folder_.Write("tables.sql", "CREATE DATABASE \"Talmix\";\n\\c Talmix\n" + script);
    GiveAway(folder_.Path());
    GiveAway(account);
    Finish(Start({"initdb", "-D", Data(), "-U", "orvane", "-A", "scram-sha-256", "--pwfile",
                  account.string(), "--no-sync", "-E", "UTF8", "--locale=C.UTF-8"}));
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
      if (Serve() && Wait(Psql(tables.string())) == 0) return;
      Kill();
      port_ = RandomPort();
    }
    throw std::runtime_error("PostgreSQL does not start");
  }
  ~PostgresCluster() { Kill(); }
  PostgresCluster(const PostgresCluster&) = delete;
  PostgresCluster& operator=(const PostgresCluster&) = delete;

  int Port() const { return port_; }
  // At once, in the middle of whatever it does.
  void Kill() {
    if (server_ <= 0) return;
    kill(server_, SIGQUIT);
    Wait(server_);
    server_ = 0;
  }

 private:
  static constexpr int kAttempts = 10;

  // Until it takes connections; false when it ends before, because the port is somebody else's.
  bool Serve() {
    server_ = Start({"postgres", "-D", Data(), "-p", std::to_string(port_), "-k",
                     folder_.Path().string(), "-c", "listen_addresses=127.0.0.1", "-c", "fsync=off",
                     "-c", "max_connections=20", "-c", "shared_buffers=16MB"});
    const std::string port = std::to_string(port_);
    while (waitpid(server_, nullptr, WNOHANG) == 0) {
      if (Wait(Start({"pg_isready", "-q", "-h", folder_.Path().string(), "-p", port})) == 0) {
        return true;
      }
      std::this_thread::sleep_for(std::chrono::milliseconds{50});
    }
    server_ = 0;
    return false;
  }
  std::string Data() const { return (folder_.Path() / "data").string(); }

  static void GiveAway(const std::filesystem::path& path) {
    const passwd* const account = getpwnam("postgres");
    if (geteuid() != 0 || account == nullptr) return;
    if (chown(path.c_str(), account->pw_uid, account->pw_gid) != 0) {
      throw std::runtime_error("cannot give away " + path.string());
    }
  }
  // As the server's own account, because it refuses to run as root.
  static pid_t Start(std::vector<std::string> words) {
    words[0] = (Programs() / words[0]).string();
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    const passwd* const account = geteuid() == 0 ? getpwnam("postgres") : nullptr;
    const uid_t user = account != nullptr ? account->pw_uid : geteuid();
    const gid_t group = account != nullptr ? account->pw_gid : getegid();
    std::fflush(nullptr);
    const pid_t process = fork();
    if (process != 0) return process;
    setenv("PGPASSWORD", kPassword, 1);
    const bool quiet = freopen("/dev/null", "w", stdout) && freopen("/dev/null", "w", stderr);
    if (quiet && (account == nullptr || (setgid(group) == 0 && setuid(user) == 0)) &&
        chdir("/") == 0) {
      execv(arguments[0], arguments.data());
    }
    _exit(127);
  }
  static int Wait(pid_t process) {
    int status = 0;
    waitpid(process, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  static void Finish(pid_t process) {
    if (Wait(process) != 0) throw std::runtime_error("initdb fails");
  }
  pid_t Psql(const std::string& script) const {
    return Start({"psql", "-q", "-v", "ON_ERROR_STOP=1", "-h", "127.0.0.1", "-p",
                  std::to_string(port_), "-U", "orvane", "-d", "postgres", "-f", script});
  }

  TemporaryFolder folder_;
  int port_ = RandomPort();
  pid_t server_ = 0;
};

}  // namespace orvane
