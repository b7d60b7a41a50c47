// A Slurm of the test's own: a controller and a node on this machine, on ports of the loopback interface,
// with all their files in a temporary folder. They end with the object.
#pragma once

#include "support/loopback.h"
#include "support/temporary_drives.h"
#include "support/temporary_folder.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <pwd.h>
#include <random>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

class Private_slurm {
public:
    // `largest_array`: how many tasks the array of a job can have.
    explicit Private_slurm(int largest_array) {
        write_key();
        write_configuration(largest_array);
        start({"munged", "--foreground", "--force", "--key-file=" + path("munge.key"),
               "--socket=" + path("munge.sock"), "--pid-file=" + path("munged.pid"),
               "--log-file=" + path("munged.log"), "--seed-file=" + path("seed")});
        await("test -S " + path("munge.sock"));
        start({"slurmctld", "-D", "-i"});
        start({"slurmd", "-D"});
        is_ready_ = await("sinfo -h -o %t | grep -q idle");
    }
    // In the order opposite to that of the start, each politely and, if that does not help, by force.
    ~Private_slurm() {
        for (auto process = processes_.rbegin(); process != processes_.rend(); ++process) {
            kill(*process, SIGTERM);
            for (int i = 0; i < 300 && waitpid(*process, nullptr, WNOHANG) == 0; ++i)
                std::this_thread::sleep_for(std::chrono::milliseconds(10));
            kill(*process, SIGKILL);
            waitpid(*process, nullptr, 0);
        }
    }
    Private_slurm(const Private_slurm&) = delete;
    Private_slurm& operator=(const Private_slurm&) = delete;

    bool is_ready() const { return is_ready_; }

private:
    std::string path(const std::string& name) const { return folder_.path(name); }

    void write_key() const {
        std::random_device random;
        std::string key;
        while (key.size() < 1024)
            key += static_cast<char>(random());
        folder_.write("munge.key", key);
        chmod(path("munge.key").c_str(), 0600);
    }
    void write_configuration(int largest_array) const {
        char host[256] = {};
        gethostname(host, sizeof host - 1);
        const std::string name = std::string(host).substr(0, std::string(host).find('.'));
        const std::string user = getpwuid(getuid())->pw_name;
        for (const char* folder : {"state", "spool"})
            std::filesystem::create_directories(path(folder));
        folder_.write(
            "slurm.conf",
            "ClusterName=test\nSlurmctldHost=" + name +
                "(127.0.0.1)\nSlurmctldPort=" + std::to_string(Silent_server().port) +
                "\nSlurmdPort=" + std::to_string(Silent_server().port) +
                "\nCommunicationParameters=NoCtldInAddrAny,NoInAddrAny"
                "\nAuthType=auth/munge\nCredType=cred/munge\nAuthInfo=socket=" +
                path("munge.sock") + "\nSlurmUser=" + user + "\nSlurmdUser=" + user +
                "\nStateSaveLocation=" + path("state") + "\nSlurmdSpoolDir=" + path("spool") +
                "\nSlurmctldPidFile=" + path("slurmctld.pid") + "\nSlurmdPidFile=" + path("slurmd.pid") +
                "\nSlurmctldLogFile=" + path("slurmctld.log") + "\nSlurmdLogFile=" + path("slurmd.log") +
                "\nProctrackType=proctrack/pgid\nTaskPlugin=task/none\nReturnToService=2"
                "\nSwitchType=switch/none\nMpiDefault=none\nSelectType=select/cons_tres"
                "\nSelectTypeParameters=CR_Core\nMailProg=/bin/true\nKillWait=1"
                "\nSchedulerParameters=sched_min_interval=10000,sched_interval=1,"
                "batch_sched_delay=0\nSlurmdParameters=config_overrides\nMaxArraySize=" +
                std::to_string(largest_array) +
                "\nAccountingStorageType=accounting_storage/none"
                "\nJobAcctGatherType=jobacct_gather/none\nNodeName=" +
                name + " NodeAddr=127.0.0.1 CPUs=8 State=UNKNOWN\nPartitionName=main Nodes=" + name +
                " Default=YES MaxTime=INFINITE State=UP\n");
    }
    void start(const std::vector<std::string>& command) {
        const pid_t process = fork();
        if (process == 0) {
            std::vector<char*> arguments;
            for (const std::string& word : command)
                arguments.push_back(const_cast<char*>(word.c_str()));
            arguments.push_back(nullptr);
            const int output = open(path(command[0] + ".out").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
            dup2(output, STDOUT_FILENO);
            dup2(output, STDERR_FILENO);
            setenv("PATH", "/usr/sbin:/usr/bin:/sbin:/bin", 1);
            execvp(arguments[0], arguments.data());
            _exit(127);
        }
        if (process > 0)
            processes_.push_back(process);
    }
    // Until the command succeeds; false after ten seconds, and at once when one of the processes has ended.
    bool await(const std::string& command) const {
        for (int i = 0; i < 200; ++i) {
            if (std::system((command + " 2>/dev/null").c_str()) == 0)
                return true;
            for (const pid_t process : processes_)
                if (waitpid(process, nullptr, WNOHANG) != 0)
                    return false;
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
        return false;
    }

    Temporary_folder folder_;
    Environment_guard configuration_{"SLURM_CONF", folder_.path("slurm.conf")};
    std::vector<pid_t> processes_;
    bool is_ready_ = false;
};
