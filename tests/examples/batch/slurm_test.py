#!/usr/bin/env python3
"""Runs the recipe of Slurm on a cluster of one machine that the test starts in a folder of its own: the array is submitted,
a task is stopped in the middle and goes back into the queue, and what all have left is joined.

Usage: slurm_test.py SOURCE PROGRAM
"""

import contextlib
import os
import pathlib
import signal
import socket
import subprocess
import sys
import tempfile
import time

import made_batch

TODAY = "2024-01-31"
TASKS = 3
DEADLINE = 150  # seconds for the whole cluster


def free_port():
    with socket.socket() as listener:
        listener.bind(("127.0.0.1", 0))
        return listener.getsockname()[1]


def wait_until(holds, what, deadline, alive=lambda: True):
    while not holds():
        if time.monotonic() > deadline or not alive():
            raise SystemExit(f"{what} took too long, or its daemons have ended")
        time.sleep(0.2)


class Cluster:
    """Munge, slurmctld and slurmd below one folder."""

    def __init__(self, folder):
        self.folder = folder
        self.deadline = time.monotonic() + DEADLINE
        self.daemons = []
        for name in ("state", "spool", "log"):
            (folder / name).mkdir()
        self.socket = folder / "munge.socket"
        host = socket.gethostname().split(".")[0]
        self.conf = folder / "slurm.conf"
        self.conf.write_text(
            f"""ClusterName=test
SlurmctldHost={host}(127.0.0.1)
SlurmUser=root
SlurmctldPort={free_port()}
SlurmdPort={free_port()}
AuthType=auth/munge
AuthInfo=socket={self.socket},cred_expire=5
CredType=cred/munge
StateSaveLocation={folder}/state
SlurmdSpoolDir={folder}/spool
SlurmctldPidFile={folder}/slurmctld.pid
SlurmdPidFile={folder}/slurmd.pid
SlurmctldLogFile={folder}/log/slurmctld.log
SlurmdLogFile={folder}/log/slurmd.log
ProctrackType=proctrack/pgid
TaskPlugin=task/none
MpiDefault=none
JobAcctGatherType=jobacct_gather/none
AccountingStorageType=accounting_storage/none
SelectType=select/cons_tres
SelectTypeParameters=CR_Core
SchedulerParameters=sched_interval=5,sched_min_interval=0,bf_interval=5
ReturnToService=2
KillWait=5
NodeName={host} NodeAddr=127.0.0.1 CPUs={os.cpu_count()} RealMemory=500 State=UNKNOWN
PartitionName=all Nodes={host} Default=YES MaxTime=INFINITE State=UP
""",
            encoding="ascii",
        )
        # Not every machine lets itself be looked at by its groups of processes, and nothing here needs them.
        (folder / "cgroup.conf").write_text("CgroupPlugin=cgroup/v1\n", encoding="ascii")
        self.environment = {**os.environ, "SLURM_CONF": str(self.conf)}

    def start(self):
        key = self.folder / "munge.key"
        key.write_bytes(os.urandom(128))
        key.chmod(0o400)
        self.folder.chmod(0o711)
        self.daemon("munged", "--foreground", "--force", f"--socket={self.socket}", f"--key-file={key}",
                    f"--pid-file={self.folder}/munged.pid", f"--seed-file={self.folder}/munge.seed",
                    f"--log-file={self.folder}/log/munged.log")
        wait_until(self.socket.exists, "munged", self.deadline)
        self.daemon("slurmctld", "-D", "-f", str(self.conf))
        self.daemon("slurmd", "-D", "-f", str(self.conf))
        wait_until(lambda: "idle" in self.call("sinfo", "-h", "-o", "%T", may_fail=True), "the node", self.deadline,
                   self.is_alive)

    def daemon(self, name, *options):
        log = (self.folder / "log" / f"{name}.out").open("wb")
        command = [made_batch.found_program(name), *options]
        self.daemons.append(subprocess.Popen(command, env=self.environment, stdout=log, stderr=log, start_new_session=True))

    def call(self, *command, may_fail=False, **variables):
        environment = {**self.environment, **variables}
        answer = subprocess.run(command, cwd=self.folder, env=environment, capture_output=True, text=True, check=False)
        if answer.returncode != 0 and not may_fail:
            raise SystemExit(f"{command}: {answer.returncode}\n{answer.stdout}{answer.stderr}")
        return answer.stdout

    def is_alive(self):
        return all(daemon.poll() is None for daemon in self.daemons)

    def is_over(self, job):
        return self.call("squeue", "-h", "-j", job, may_fail=True).strip() == ""

    def stop(self):
        for daemon in reversed(self.daemons):
            with contextlib.suppress(ProcessLookupError):
                os.killpg(daemon.pid, signal.SIGTERM)
            try:
                daemon.wait(10)
            except subprocess.TimeoutExpired:
                os.killpg(daemon.pid, signal.SIGKILL)
                daemon.wait()

    def logs(self):
        for log in sorted((self.folder / "log").iterdir()) + sorted(self.folder.glob("slurm-*.out")):
            print(f"== {log.name}\n{log.read_text(encoding='utf-8', errors='replace')[-3000:]}")


def lines_in(path):
    return len(path.read_text(encoding="utf-8").splitlines()) if path.exists() else 0


def run(cluster, recipes, program, wanted):
    folder = cluster.folder
    out = folder / "out"
    out.mkdir()
    common = f"ALL,TRADEBILL={program},OUT={out}"
    job = cluster.call("sbatch", "--parsable", f"--array=0-{TASKS - 1}", "--cpus-per-task=1", "--mem-per-cpu=100M",
                       f"--export={common},ROOT=root,TODAY={TODAY}", str(recipes / "slurm_array.sh")).strip()
    merge = cluster.call("sbatch", "--parsable", f"--dependency=afterany:{job}", "--mem=50M", f"--export={common},TODAY={TODAY}",
                         str(recipes / "slurm_merge.sh")).strip()
    results = out / f"results-1-of-{TASKS}.jsonl"
    wait_until(lambda: lines_in(results) >= 2, "the first task", cluster.deadline)
    cluster.call("scancel", "--signal=TERM", "--batch", f"{job}_0")
    wait_until(lambda: cluster.is_over(job) and cluster.is_over(merge), "the batch", cluster.deadline)
    told = "".join(path.read_text(encoding="utf-8") for path in folder.glob(f"slurm-{job}_0.out"))
    if "stopping: the accounts in work have" not in told:
        raise SystemExit("the first task wasn't stopped in the middle")
    made_batch.expect_same(out, wanted)


def main():
    for name in ("munged", "slurmctld", "slurmd", "sbatch"):
        made_batch.found_program(name)
    if os.geteuid() != 0:
        print("only root starts daemons that run jobs as others")
        return 77
    recipes = pathlib.Path(sys.argv[1]).resolve() / "examples/batch"
    program = str(pathlib.Path(sys.argv[2]).resolve())
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        made_batch.make_accounts(pathlib.Path(sys.argv[1], "samples").resolve(), folder / "root", 90, 20)
        os.chdir(folder)
        wanted = made_batch.in_one_task(program, "root", "whole", TODAY)
        cluster = Cluster(folder)
        try:
            cluster.start()
            run(cluster, recipes, program, wanted)
        except BaseException:
            cluster.logs()
            raise
        finally:
            cluster.stop()
    return 0


if __name__ == "__main__":
    sys.exit(main())
