"""Times look-ups in contact files of each engine and size, the engines' own tools beside them.

  /usr/bin/python3 -m bench.lookup <folder of the programs> <report>
"""

import pathlib
import statistics
import subprocess
import sys
import tarfile
import tempfile
import time

from tests.platform.databases.odbc import database_server

SOURCE = pathlib.Path(__file__).parent.parent
JET_DATA = SOURCE / "tests" / "data" / "jet"
TOOL_ROUNDS = 5


def milliseconds(action):
    begin = time.monotonic()
    action()
    return (time.monotonic() - begin) * 1e3


def quietly(*command, **options):
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL, **options)


def sqlite_tool(file, number):
    quietly("sqlite3", file, f"SELECT * FROM AdrDetail JOIN Adressen USING(AdrID) WHERE RawTel1='{number}'")


def jet_tool(file, _number):
    for table in ("Adressen", "AdrDetail"):
        quietly("mdb-export", file, table)


def server_tool(environment, number):
    folder = environment["ORVANE_TEST_SERVER"]
    quietly("psql", "-h", folder, "-U", "orvane", "-d", "Talmix", "-c",
            'SELECT * FROM "AdrDetail" JOIN "Adressen" USING("AdrID") '
            f"""WHERE "RawTel1"='{number}'""", env=environment)


def measure_server(program, name, script, numbers):
    with database_server.running(script) as environment:
        return measure(program, name, "server:" + environment["ORVANE_TEST_SERVER"], numbers,
                       lambda _, number: server_tool(environment, number), env=environment)


def measure(program, name, file, numbers, tool, **options):
    """One line of the report."""
    output = subprocess.run([program, file, *numbers], check=True, stdout=subprocess.PIPE,
                            text=True, **options).stdout
    cold, *warm = (int(line) / 1e6 for line in output.split())
    if 0 in (cold, *warm):
        sys.exit(f"{name}: a number was not found")
    plain = statistics.median(milliseconds(lambda: tool(file, numbers[0])) for _ in range(TOOL_ROUNDS))
    median = statistics.median(warm)
    return (f"| {name} | {cold:.2f} ms | {median:.3f} ms | {sorted(warm)[-2]:.2f} ms | {plain:.1f} ms "
            f"| {cold / plain:.2f} | {median / plain:.3f} |")


def main():
    program = pathlib.Path(sys.argv[1]) / "orvane-bench-lookup"
    report = pathlib.Path(sys.argv[2])
    with tempfile.TemporaryDirectory(dir="/dev/shm") as folder:
        folder = pathlib.Path(folder)
        million = folder / "million.fdb"
        quietly("sqlite3", million, stdin=(SOURCE / "bench" / "million.sql").open())
        with tarfile.open(JET_DATA / "CONTACT-large.tar.xz") as archive:
            archive.extractall(folder)
        lines = [
            "| File | first | then (p50) | then (p99) | the engine's own tool | first / tool | then / tool |",
            "|---|---|---|---|---|---|---|",
            measure(program, "Jet, 15 companies", JET_DATA / "CONTACT.FDB",
                    ["4930123456", "49211445566"], jet_tool),
            measure(program, "Jet, 70,000 rows", folder / "CONTACT-large.FDB",
                    ["493000000010", "493000499990", "492000000010", "492000199990"], jet_tool),
            measure(program, "SQLite, 1,000,000 persons", million,
                    ["493000000010", "493009999990", "492000000010", "491705000000"], sqlite_tool),
            measure_server(program, "ODBC, 15 companies", SOURCE / "tests" / "data" / "contacts.sql",
                           ["4930123456", "49211445566"]),
            measure_server(program, "ODBC, 1,000,000 persons", SOURCE / "bench" / "million.sql",
                           ["493000000010", "493009999990", "492000000010", "491705000000"])]
    report.parent.mkdir(parents=True, exist_ok=True)
    report.write_text("\n".join(lines) + "\n")
    print(report.read_text(), end="")


if __name__ == "__main__":
    main()
