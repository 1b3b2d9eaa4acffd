"""What the tests of faults share: a profile, a server, a program, the rows of a database."""

import contextlib
import glob
import http.server
import os
import pathlib
import random
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
# The columns that only the user changes: a refresh writes its result into the channel's row.
LASTING = ["* from TB_FOLDER", "* from TB_POST", "channel_id, channel_folderID, channel_title, "
           "channel_xmllink, channel_order from TB_CHANNEL"]


class Program(subprocess.Popen):
    """A running program; killed at the end of the `with` unless it has ended."""

    def __init__(self, *command, stderr=subprocess.PIPE, **options):
        self.began = time.monotonic()
        super().__init__([str(part) for part in command], stdin=subprocess.DEVNULL,
                         stdout=subprocess.PIPE, stderr=stderr, text=True, **options)

    def __exit__(self, *_):
        self.kill()
        self.finish()

    def finish(self, patience=PATIENCE):
        """Returns the program itself after its end; raises after so many seconds."""
        self.out, self.err = self.communicate(timeout=patience)
        self.seconds = time.monotonic() - self.began
        return self

    def kill_after(self, seconds):
        """False when it has ended before that."""
        with contextlib.suppress(subprocess.TimeoutExpired):
            self.finish(seconds)
        self.kill()
        return self.finish().returncode == -signal.SIGKILL

    def close(self):
        """Closes a window as the desktop does at its end."""
        self.terminate()
        return self.finish().returncode


def pages(window):
    """The ids of its render processes: those of its session that have a compositor thread."""
    found = set()
    for thread in glob.glob("/proc/[0-9]*/task/*/comm"):
        with contextlib.suppress(OSError):  # it has ended meanwhile
            process, name = int(thread.split("/")[2]), pathlib.Path(thread).read_text()
            if name == "Compositor\n" and os.getsid(process) == window.pid:
                found.add(process)
    return found


class Database:
    """A database file, read and changed past the programs."""

    def __init__(self, path):
        self.path = path

    @contextlib.contextmanager
    def transaction(self, kind=""):
        """Committed at the end of the `with`; an "exclusive" one locks everybody else out."""
        with contextlib.closing(sqlite3.connect(self.path, isolation_level=None)) as connection:
            connection.execute("pragma synchronous = off")
            connection.execute(f"begin {kind}")
            yield connection
            connection.execute("commit")

    def sql(self, statement, *values):
        with self.transaction() as connection:
            return connection.execute(statement, values).fetchall()

    def pragma(self, text):
        """Outside any transaction."""
        with contextlib.closing(sqlite3.connect(self.path)) as connection:
            return connection.execute(f"pragma {text}").fetchone()[0]

    def rows(self):
        return {part: set(self.sql(f"select {part}")) for part in LASTING}

    def is_whole(self):
        """False also for a file that is no database."""
        with contextlib.suppress(sqlite3.DatabaseError):
            return self.sql("pragma integrity_check") == [("ok",)]
        return False


class Profile:
    """A profile with these channels, pairs of a title and an address, in one folder."""

    def __init__(self, folder, channels):
        self.folder, self.registry = folder, folder / "registry.reg"
        self.database = Database(folder / "module/rssdb")
        self.backup = Database(folder / "module/rssdb.bak")
        made = self.run("init", "--lang", "ENG", "--code-page", "UTF-8")
        assert made.returncode == 0, made.err
        self.database.sql("delete from TB_CHANNEL")
        with self.database.transaction() as connection:
            connection.executemany("insert into TB_CHANNEL(channel_folderID, channel_title, "
                                   "channel_xmllink) values(1, ?, ?)", channels)

    def add_posts(self, channels, count, text="text"):
        with self.database.transaction() as connection:
            connection.executemany(
                "insert into TB_POST(post_title, post_link, post_desc, post_channelID) "
                f"values('Post', ?, '{text}', ?)",
                [(f"http://old.example/{i}", id) for id in channels for i in range(count)])

    def start(self, *arguments, **options):
        return Program(PROGRAMS / "feedloomctl", "--profile", self.folder, *arguments, **options)

    def run(self, *arguments, **options):
        with self.start(*arguments, **options) as program:
            return program.finish()

    def start_window(self, *arguments, **options):
        """Off screen, without anything of a desktop: no bus, no portal, no runtime folder."""
        environment = {"PATH": os.environ["PATH"], "HOME": str(self.folder.parent),
                       "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "offscreen"}
        return Program(PROGRAMS / "halvix", "--profile", self.folder, *arguments,
                       env=environment, start_new_session=True, **options)

    def links(self):
        return {link for (link,) in self.database.sql("select post_link from TB_POST")}

    def files(self):
        """But for those that the database has beside it as long as somebody uses it, and the days'
        copies."""
        return {str(path.relative_to(self.folder)) for path in self.folder.rglob("*")
                if not {"rssdb-wal", "rssdb-shm", "backups"}.intersection(path.parts)}


class Server(http.server.ThreadingHTTPServer):
    """answers["a"], a function of a Handler, answers a request of /a."""
    request_queue_size = 64

    def __init__(self):
        super().__init__(("127.0.0.1", 0), Handler)
        self.answers = {}

    def serve(self, name, body, tag='"tag"'):
        """With an ETag; whoever sends it again is told that nothing has changed."""
        def answer(handler):
            known = handler.headers["If-None-Match"] == tag
            handler.wfile.write(response(b"" if known else body, f"ETag: {tag}",
                                         status="304 Not Modified" if known else "200 OK"))
        self.answers[name] = answer


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"
    log_message = lambda *_: None

    def handle(self):
        with contextlib.suppress(OSError):  # a client may go in the middle of an answer
            super().handle()

    def do_GET(self):
        self.server.answers[self.path.removeprefix("/")](self)


def head(*headers, status="200 OK"):
    return "\r\n".join([f"HTTP/1.1 {status}", "Content-Type: text/xml", *headers, "", ""]).encode()


def response(body, *headers, status="200 OK"):
    return head(f"Content-Length: {len(body)}", *headers, status=status) + body


def feed(title, *links, text="text"):
    items = "".join(f"<item><title>Post</title><link>{link}</link><description>{text}</description>"
                    "</item>" for link in links)
    return (f"<rss version='2.0'><channel><title>{title}</title><link>http://site.example/</link>"
            f"{items}</channel></rss>").encode()


class Story(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory(
            prefix="feedloom-faults-", ignore_cleanup_errors=True)))
        self.server = self.enterContext(Server())
        threading.Thread(target=self.server.serve_forever, args=(0.05,), daemon=True).start()
        self.addCleanup(self.server.shutdown)

    def make_profile(self, *names, name="profile"):
        """With channels that are named as the server knows their feeds."""
        address = f"http://127.0.0.1:{self.server.server_port}/"
        return Profile(self.folder / name, [(name, address + name) for name in names])

    def show(self, profile, *arguments, **options):
        window = self.enterContext(profile.start_window(*arguments, **options))
        deadline = window.began + PATIENCE
        while not pages(window):  # what is waited for sends no event
            self.assertLess(time.monotonic(), deadline, "the window shows no page")
            time.sleep(0.01)
        return window

    def assert_refreshes(self, profile, links):
        """A refresh succeeds without a word of complaint; these links are stored then. Returns
        how many seconds it takes."""
        before = profile.database.rows()
        ended = profile.run("refresh")
        self.assertEqual((ended.returncode, ended.err), (0, ""))
        self.assertLessEqual(set(links), profile.links())
        self.assert_kept(before, profile)
        return ended.seconds

    def assert_kept(self, before, profile):
        """The database is whole, and every row is there as it was; others may have come."""
        self.assertTrue(profile.database.is_whole())
        for part, rows in profile.database.rows().items():
            self.assertLessEqual(before[part], rows, part)

    def assert_backed_up(self, profile):
        self.assertTrue(profile.backup.is_whole())
        self.assertEqual(profile.backup.rows(), profile.database.rows())
