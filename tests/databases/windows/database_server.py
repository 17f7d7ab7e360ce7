#!/usr/bin/python3
"""Runs a program while a database server with the contacts runs beside Wine.

  tests/databases/windows/database_server.py <script.sql> <command...>

Wine's odbc32 hands everything to this system's ODBC. There PostgreSQL's driver bears the name of
one that the program looks for, and its server listens in the folder that ORVANE_TEST_SERVER names.
"""
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


def main():
    script = pathlib.Path(sys.argv[1]).read_text(encoding="utf-8")
    # The path of a socket must be short.
    with tempfile.TemporaryDirectory(prefix="orvane", dir="/tmp") as name:
        folder = pathlib.Path(name)
        server = serve(folder, script)
        try:
            return subprocess.run(sys.argv[2:], env={
                **os.environ, "ODBCSYSINI": name, "ORVANE_TEST_SERVER": name}).returncode
        finally:
            server.terminate()
            server.wait()


if __name__ == "__main__":
    sys.exit(main())
