"""What the stories about faults are told with: a profile, a server, a program, rows of a database.

All of it is real: the programs of the build that the first argument names, a folder that ends with
its story, a server on 127.0.0.1.
"""

import contextlib
import dataclasses
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
import unittest

PROGRAMS = pathlib.Path(sys.argv.pop(1))
SEED = int(os.environ.get("FEEDLOOM_SEED", 0)) or random.SystemRandom().randrange(1, 1 << 32)
print(f"FEEDLOOM_SEED={SEED} repeats what is random here", flush=True)
PATIENCE = 30  # seconds, for anything that ends by itself
# What nobody but the user changes: a refresh notes its outcome with the channel.
LASTING = {
    "TB_FOLDER": "*",
    "TB_CHANNEL": "channel_id, channel_folderID, channel_title, channel_xmllink, channel_order",
    "TB_POST": "*",
    "TB_SCRAP_CHANNEL": "*",
    "TB_SCRAP_POST": "*",
}


def wait_until(is_true, what):
    """For what tells nobody that it has come about; raises when it does not."""
    deadline = time.monotonic() + PATIENCE
    while not is_true():
        if time.monotonic() > deadline:
            raise TimeoutError(what)
        time.sleep(0.01)


@dataclasses.dataclass
class Ended:
    """How a program has ended."""
    status: int
    out: str
    err: str
    seconds: float


class Program:
    """A program under way; killed at the end of the `with` unless it has ended."""

    def __init__(self, command, err=None, **options):
        self.out, self.err = tempfile.TemporaryFile(), err or tempfile.TemporaryFile()
        self.began = time.monotonic()
        self.process = subprocess.Popen([str(part) for part in command], stdin=subprocess.DEVNULL,
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
        """What it has written to stdout so far."""
        size = os.fstat(self.out.fileno()).st_size
        return os.pread(self.out.fileno(), size, 0).decode()

    def ends_within(self, seconds):
        """Waits so long at most; finish() comes after it."""
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

    def finish(self, patience=PATIENCE):
        """Waits for its end."""
        if not self.ends_within(patience):
            raise TimeoutError(f"{self.process.args} does not end\n{self.printed()}")
        seconds = time.monotonic() - self.began
        self.process.wait()
        self.err.seek(0)
        return Ended(self.process.returncode, self.printed(), self.err.read().decode(), seconds)


def texts(pattern):
    """Of the files that match, but for those that go meanwhile."""
    for path in glob.glob(pattern):
        with contextlib.suppress(OSError):
            yield pathlib.Path(path).read_text()


def children(process):
    """The ids of all processes below this one."""
    below = [int(child) for text in texts(f"/proc/{process}/task/*/children")
             for child in text.split()]
    return below + [more for child in below for more in children(child)]


def pages(window):
    """The ids of its render processes, which go by the name of the process that they came from."""
    return {child for child in children(window.process.pid)
            if "Compositor\n" in texts(f"/proc/{child}/task/*/comm")}


class Database:
    """A database file, looked at past the programs."""

    def __init__(self, path):
        self.path = pathlib.Path(path)

    @contextlib.contextmanager
    def connection(self):
        with contextlib.closing(sqlite3.connect(self.path, isolation_level=None)) as connection:
            connection.execute("pragma synchronous = off")
            yield connection

    @contextlib.contextmanager
    def locked(self):
        """No other program gets at it meanwhile."""
        with self.connection() as connection:
            connection.execute("begin exclusive")
            yield

    def sql(self, statement, *values):
        with self.connection() as connection:
            return connection.execute(statement, values).fetchall()

    def fill(self, statement, rows):
        with self.connection() as connection:
            connection.execute("begin")
            connection.executemany(statement, rows)
            connection.execute("commit")

    def rows(self):
        """All that lasts, by table."""
        return {table: set(self.sql(f"select {columns} from {table}"))
                for table, columns in LASTING.items()}

    def is_whole(self):
        try:
            return self.sql("pragma integrity_check") == [("ok",)]
        except sqlite3.DatabaseError:
            return False  # it is none at all


class Profile:
    """A profile with channels of one folder, named as `server` knows their feeds."""

    def __init__(self, folder, server=None, channels=()):
        self.folder = pathlib.Path(folder)
        self.work = self.folder / "work"
        self.registry = self.folder / "registry.reg"
        self.database = Database(self.folder / "module/rssdb")
        self.backup = Database(self.folder / "module/rssdb.bak")
        made = self.run("init", "--lang", "ENG", "--code-page", "UTF-8")
        if made.status != 0:
            raise RuntimeError(f"no profile: {made.err}")
        self.database.sql("delete from TB_CHANNEL")
        self.add_channels(1, [(name, server.url(name)) for name in channels])

    def add_channels(self, folder, channels):
        """Pairs of a title and an address."""
        self.database.fill("insert into TB_CHANNEL(channel_folderID, channel_title, "
                           f"channel_xmllink) values({folder}, ?, ?)", channels)

    def add_posts(self, channel, count, text="text"):
        self.database.fill(
            f"insert into TB_POST(post_channelID, post_title, post_link, post_desc) "
            f"values({channel}, ?, ?, ?)",
            [(f"Post {i}", f"http://old.example/{channel}/{i}", text) for i in range(count)])

    def start(self, *arguments, **options):
        # What it prints is to be seen at once.
        return Program(["stdbuf", "-oL", PROGRAMS / "feedloomctl", "--profile", self.folder,
                        *arguments], **options)

    def run(self, *arguments, **options):
        with self.start(*arguments, **options) as program:
            return program.finish()

    def start_window(self, *arguments, **options):
        """Off screen, where there is nothing of a desktop: no bus, no portal, no runtime folder."""
        environment = {"PATH": os.environ["PATH"], "HOME": str(self.folder.parent),
                       "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "offscreen"}
        return Program([PROGRAMS / "halvix", "--profile", self.folder, *arguments],
                       env=environment, **options)

    def links(self):
        """The links of all posts."""
        return {link for (link,) in self.database.sql("select post_link from TB_POST")}

    def files(self):
        return {str(path.relative_to(self.folder)) for path in self.folder.rglob("*")}


class Server(http.server.ThreadingHTTPServer):
    """Serves on 127.0.0.1 what it is told to, well or badly, until the end of the `with`.

    What is served as "a" is at the address `url("a")`. An answer is a function of the request's
    handler, which writes to its `wfile`.
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
        """Programs that are killed or stopped in the middle of an answer are what this is for."""
        if not isinstance(sys.exc_info()[1], OSError):
            super().handle_error(request, client_address)

    def url(self, name):
        return f"http://127.0.0.1:{self.server_port}/{name}"

    def serve(self, name, body, *headers, status="200 OK"):
        self.answers[name] = lambda handler: handler.reply(body, *headers, status=status)

    def serve_with_tag(self, name, body, tag):
        """With an ETag, whose bearer is told that nothing has changed."""
        def answer(handler):
            if handler.headers["If-None-Match"] == tag:
                handler.reply(b"", f"ETag: {tag}", status="304 Not Modified")
            else:
                handler.reply(body, f"ETag: {tag}")
        self.answers[name] = answer

    def wait_for(self, name):
        wait_until(lambda: name in self.requests, f"no request for {name}")


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
        lines = [f"HTTP/1.1 {status}", "Content-Type: text/xml", *headers, "", ""]
        self.wfile.write("\r\n".join(lines).encode())

    def wait(self):
        """Until the server ends."""
        self.close_connection = True
        self.server.ends.wait()

    def log_message(self, *_):
        pass


def item(link, text="text"):
    return (f"<item><title>Post</title><link>{link}</link><description>{text}</description>"
            "</item>")


def feed(title, *items):
    return (f"<rss version='2.0'><channel><title>{title}</title><link>http://site.example/</link>"
            f"{''.join(items)}</channel></rss>").encode()


class Story(unittest.TestCase):
    """A test with a folder and a server of its own."""

    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="feedloom-faults-"))
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.server = self.enterContext(Server())

    def profile(self, *channels, name="profile"):
        return Profile(self.folder / name, self.server, channels)

    def show(self, profile, **options):
        """A window that shows a page, as it does at first."""
        window = self.enterContext(profile.start_window(**options))
        wait_until(lambda: pages(window), "the window shows no page")
        return window

    def assert_whole(self, profile):
        self.assertTrue(profile.database.is_whole())

    def assert_kept(self, before, profile):
        """Every row of every table is there as it was; others may have come."""
        after = profile.database.rows()
        for table, rows in before.items():
            self.assertLessEqual(rows, after[table], table)
