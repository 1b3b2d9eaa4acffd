"""What the tests of faults share: a profile, a server, a program, the rows of a database.

All of it is real: the programs of the build that the first argument names, a folder that ends with
its test, a server on 127.0.0.1.
"""

import contextlib
import functools
import glob
import http.server
import os
import pathlib
import random
import select
import shutil
import signal
import sqlite3
import subprocess
import sys
import tempfile
import threading
import time
import typing
import unittest

PROGRAMS = pathlib.Path(sys.argv.pop(1))
SEED = int(os.environ.get("FEEDLOOM_SEED", 0)) or random.SystemRandom().randrange(1, 1 << 32)
print(f"FEEDLOOM_SEED={SEED} repeats what is random here", flush=True)
PATIENCE = 30  # seconds, for anything that ends by itself
# The columns that only the user changes: a refresh writes its result into the channel's row.
LASTING = {table: "*" for table in ("TB_FOLDER", "TB_POST", "TB_SCRAP_CHANNEL", "TB_SCRAP_POST")}
LASTING["TB_CHANNEL"] = (
    "channel_id, channel_folderID, channel_title, channel_xmllink, channel_order")


def wait_until(is_true, what):
    """Looks again and again: what is waited for sends no event. Raises after PATIENCE."""
    deadline = time.monotonic() + PATIENCE
    while not is_true():
        if time.monotonic() > deadline:
            raise TimeoutError(what)
        time.sleep(0.01)


class Ended(typing.NamedTuple):
    status: int
    out: str
    err: str
    seconds: float


class Program:
    """A running program; killed at the end of the `with` unless it has ended."""

    def __init__(self, command, err=None, **options):
        self.out, self.err = tempfile.TemporaryFile(), err or tempfile.TemporaryFile()
        self.began = time.monotonic()
        self.process = subprocess.Popen(list(map(str, command)), stdin=subprocess.DEVNULL,
                                        stdout=self.out, stderr=self.err, **options)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process.returncode is None:
            self.process.kill()
            self.finish()
        self.out.close()
        self.err.close()

    def printed(self):
        return os.pread(self.out.fileno(), os.fstat(self.out.fileno()).st_size, 0).decode()

    def ends_within(self, seconds):
        """Waits for its end, at most so long. finish() must follow."""
        handle = os.pidfd_open(self.process.pid)
        try:
            return bool(select.select([handle], [], [], seconds)[0])
        finally:
            os.close(handle)

    def kill_after(self, seconds):
        """False when it has ended before that."""
        if not self.ends_within(seconds):
            os.kill(self.process.pid, signal.SIGKILL)
        return self.finish().status == -signal.SIGKILL

    def close(self):
        """Closes a window as the desktop does at its end."""
        self.process.send_signal(signal.SIGTERM)
        return self.finish().status

    def finish(self):
        if not self.ends_within(PATIENCE):
            raise TimeoutError(f"{self.process.args} does not end\n{self.printed()}")
        seconds = time.monotonic() - self.began
        self.process.wait()
        self.err.seek(0)
        return Ended(self.process.returncode, self.printed(), self.err.read().decode(), seconds)


def texts(pattern):
    """The contents of the files that match; a file that vanishes meanwhile is left out."""
    for path in glob.glob(pattern):
        with contextlib.suppress(OSError):
            yield pathlib.Path(path).read_text()


def children(process):
    below = [int(child) for text in texts(f"/proc/{process}/task/*/children")
             for child in text.split()]
    return below + [more for child in below for more in children(child)]


def pages(window):
    """The ids of its render processes: those with a compositor thread."""
    return {child for child in children(window.process.pid)
            if "Compositor\n" in texts(f"/proc/{child}/task/*/comm")}


class Database:
    """A database file, read and changed past the programs."""

    def __init__(self, path):
        self.path = pathlib.Path(path)

    @contextlib.contextmanager
    def connection(self, begin="begin"):
        """In one transaction, which is committed at the end of the `with`."""
        with contextlib.closing(sqlite3.connect(self.path, isolation_level=None)) as connection:
            connection.execute("pragma synchronous = off")
            connection.execute(begin)
            yield connection
            connection.execute("commit")

    def locked(self):
        """No other program can use it until the end of the `with`."""
        return self.connection("begin exclusive")

    def sql(self, statement, *values):
        with self.connection() as connection:
            return connection.execute(statement, values).fetchall()

    def rows(self):
        return {table: set(self.sql(f"select {columns} from {table}"))
                for table, columns in LASTING.items()}

    def is_whole(self):
        """False also for a file that is no database."""
        with contextlib.suppress(sqlite3.DatabaseError):
            return self.sql("pragma integrity_check") == [("ok",)]
        return False


class Profile:
    """A profile with channels of one folder, named as `server` knows their feeds."""

    def __init__(self, folder, server=None, channels=()):
        self.folder = pathlib.Path(folder)
        self.work = self.folder / "work"
        self.registry = self.folder / "registry.reg"
        self.database = Database(self.folder / "module/rssdb")
        self.backup = Database(self.folder / "module/rssdb.bak")
        made = self.run("init", "--lang", "ENG", "--code-page", "UTF-8")
        assert made.status == 0, made.err
        self.database.sql("delete from TB_CHANNEL")
        self.add_channels(1, [(name, server.url(name)) for name in channels])

    def add_channels(self, folder, channels):
        """`channels`: pairs of a title and an address."""
        with self.database.connection() as connection:
            connection.executemany("insert into TB_CHANNEL(channel_folderID, channel_title, "
                                   f"channel_xmllink) values({folder}, ?, ?)", channels)

    def add_posts(self, channels, count, text="text"):
        with self.database.connection() as connection:
            connection.executemany(
                "insert into TB_POST(post_channelID, post_title, post_link, post_desc) "
                "values(?, ?, ?, ?)",
                [(channel, f"Post {i}", f"http://old.example/{channel}/{i}", text)
                 for channel in channels for i in range(count)])

    def start(self, *arguments, **options):
        """feedloomctl; its output is there at once."""
        return Program(["stdbuf", "-oL", PROGRAMS / "feedloomctl", "--profile", self.folder,
                        *arguments], **options)

    def run(self, *arguments, **options):
        with self.start(*arguments, **options) as program:
            return program.finish()

    def start_window(self, *arguments, **options):
        """halvix off screen, without anything of a desktop: no bus, no portal, no runtime folder."""
        environment = {"PATH": os.environ["PATH"], "HOME": str(self.folder.parent),
                       "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "offscreen"}
        return Program([PROGRAMS / "halvix", "--profile", self.folder, *arguments],
                       env=environment, **options)

    def links(self):
        return {link for (link,) in self.database.sql("select post_link from TB_POST")}

    def files(self):
        return {str(path.relative_to(self.folder)) for path in self.folder.rglob("*")}


class Server(http.server.ThreadingHTTPServer):
    """Serves on 127.0.0.1 what it is told to, well or badly, until the end of the `with`.

    `answers["a"]` is what the address `url("a")` answers: a function of the request's Handler.
    """
    daemon_threads = True
    block_on_close = False
    request_queue_size = 64

    def __init__(self):
        super().__init__(("127.0.0.1", 0), Handler)
        self.answers = {}
        self.requests = []  # the names that were asked for
        self.ends = threading.Event()  # for answers that wait

    def __enter__(self):
        threading.Thread(target=self.serve_forever, args=(0.05,), daemon=True).start()
        return self

    def __exit__(self, *_):
        self.ends.set()
        self.shutdown()
        self.server_close()

    def handle_error(self, request, client_address):
        """A client that was killed or stopped in the middle of an answer is no error here."""
        if not isinstance(sys.exc_info()[1], OSError):
            super().handle_error(request, client_address)

    def url(self, name):
        return f"http://127.0.0.1:{self.server_port}/{name}"

    def serve(self, name, body, tag='"tag"'):
        """With an ETag; whoever sends it again is told that nothing has changed."""
        def answer(handler):
            if handler.headers["If-None-Match"] == tag:
                handler.reply(b"", f"ETag: {tag}", status="304 Not Modified")
            else:
                handler.reply(body, f"ETag: {tag}")
        self.answers[name] = answer

    @contextlib.contextmanager
    def holding_back(self, names):
        """Within the `with` these have been asked for, and no answer begins before its end."""
        go, answers = threading.Event(), dict(self.answers)
        for name, answer in answers.items():
            self.answers[name] = lambda handler, answer=answer: (go.wait(), answer(handler))

        def proceed():
            go.set()
            self.answers = answers
        self.requests.clear()
        try:
            yield lambda: wait_until(lambda: set(names) <= set(self.requests), names), proceed
        finally:
            proceed()


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"
    disable_nagle_algorithm = True

    def do_GET(self):
        name = self.path.removeprefix("/")
        self.server.requests.append(name)
        absent = functools.partial(Handler.reply, body=b"", status="404 Not Found")
        self.server.answers.get(name, absent)(self)

    def reply(self, body, *headers, status="200 OK"):
        self.head(f"Content-Length: {len(body)}", *headers, status=status)
        self.wfile.write(body)

    def head(self, *headers, status="200 OK"):
        self.close_connection = self.close_connection or "Connection: close" in headers
        lines = [f"HTTP/1.1 {status}", "Content-Type: text/xml", *headers, "", ""]
        self.wfile.write("\r\n".join(lines).encode())

    def wait(self):
        self.close_connection = True
        self.server.ends.wait()

    def log_message(self, *_):
        pass


def feed(title, *links, text="text"):
    items = "".join(f"<item><title>Post</title><link>{link}</link><description>{text}</description>"
                    "</item>" for link in links)
    return (f"<rss version='2.0'><channel><title>{title}</title><link>http://site.example/</link>"
            f"{items}</channel></rss>").encode()


class Story(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="feedloom-faults-"))
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.server = self.enterContext(Server())

    def make_profile(self, *channels, name="profile"):
        return Profile(self.folder / name, self.server, channels)

    def show(self, profile, **options):
        window = self.enterContext(profile.start_window(**options))
        wait_until(lambda: pages(window), "the window shows no page")
        return window

    def assert_refreshes(self, profile, links):
        """A refresh succeeds without a word of complaint; these links are stored then."""
        before = profile.database.rows()
        ended = profile.run("refresh")
        self.assertEqual((ended.status, ended.err), (0, ""))
        self.assertLessEqual(set(links), profile.links())
        self.assert_kept(before, profile)

    def assert_kept(self, before, profile):
        """The database is whole, and every row is there as it was; others may have come."""
        self.assertTrue(profile.database.is_whole())
        after = profile.database.rows()
        for table, rows in before.items():
            self.assertLessEqual(rows, after[table], table)
