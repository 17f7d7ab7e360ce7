#!/usr/bin/python3
"""Runs a program while a database server with the given content runs beside it.

  tests/platform/databases/odbc/database_server.py <script.sql> <command...>

The program's ODBC has one driver, PostgreSQL's, under the name of one that the dialer looks for.
Under Wine too, whose odbc32 hands everything to this system's. ORVANE_TEST_SERVER is the folder in
which the server listens.
"""
import contextlib
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

ACCOUNT = "orvane"
PASSWORD = "geheim;}"
START_S = 60
# The server refuses to run as root.
RIGHTS = {"user": "postgres", "group": "postgres"} if os.geteuid() == 0 else {}


def programs():
    return sorted(pathlib.Path("/usr/lib/postgresql").glob("*/bin"))[-1]


def run(program, *arguments):
    return subprocess.run(
        [programs() / program, *arguments], cwd="/", stdout=subprocess.DEVNULL,
        stderr=subprocess.DEVNULL, env={**os.environ, "PGPASSWORD": PASSWORD}, **RIGHTS).returncode


def fill(folder, script):
    end = time.monotonic() + START_S
    while run("psql", "-q", "-v", "ON_ERROR_STOP=1", "-h", folder, "-U", ACCOUNT,
              "-d", "postgres", "-f", script):
        if time.monotonic() > end:
            sys.exit("the database server does not start")
        time.sleep(0.1)


def serve(folder, script):
    password = folder / "password"
    password.write_text(PASSWORD, encoding="utf-8")
    tables = folder / "tables.sql"
    tables.write_text('CREATE DATABASE "Talmix";\n\\c Talmix\n' + script, encoding="utf-8")
    drivers = folder / "odbcinst.ini"
    drivers.write_text("[SQL Server]\nDriver=psqlodbcw.so\n", encoding="utf-8")
    if RIGHTS:
        shutil.chown(folder, "postgres", "postgres")
    data = folder / "data"
    if run("initdb", "-D", data, "-U", ACCOUNT, "-A", "scram-sha-256", "--pwfile",
           password, "--no-sync", "-E", "UTF8", "--locale=C.UTF-8"):
        sys.exit("no database can be made")
    server = subprocess.Popen(
        [programs() / "postgres", "-D", data, "-k", folder, "-c", "listen_addresses=",
         "-c", "fsync=off", "-c", "shared_buffers=16MB"], cwd="/", stdout=subprocess.DEVNULL,
        stderr=subprocess.DEVNULL, **RIGHTS)
    fill(folder, tables)
    return server


@contextlib.contextmanager
def running(script):
    """The environment for programs that use the server."""
    # The path of a socket must be short.
    with tempfile.TemporaryDirectory(prefix="orvane", dir="/tmp") as name:
        server = serve(pathlib.Path(name), pathlib.Path(script).read_text(encoding="utf-8"))
        try:
            yield {**os.environ, "ODBCSYSINI": name, "ORVANE_TEST_SERVER": name,
                   "PGPASSWORD": PASSWORD}
        finally:
            server.terminate()
            server.wait()


def main():
    with running(sys.argv[1]) as environment:
        return subprocess.run(sys.argv[2:], env=environment).returncode


if __name__ == "__main__":
    sys.exit(main())
