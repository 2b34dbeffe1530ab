"""ftp-server.py FOLDER [gbk] [list] [tls] [idle=SECONDS]

Serves FOLDER/files by FTP on a free port of the loopback, which it writes to its output, until its input ends. Each
command that it receives goes into FOLDER/commands. FOLDER/rules is read at every command and holds its misbehaviour, a
line each:

  refuse VERB CODE     answers the command with an error
  drop VERB TIMES      closes the connection instead of an answer; so many times, -1 for ever
  hang VERB            does not answer
  short SIZE           tells of every file that is there one byte less than it has
  full BYTES           takes so many bytes of an upload, then has no room left
  cut BYTES            closes everything after so many bytes of an upload
  slow BYTES           takes and sends so many bytes a second
"""
import os
import pathlib
import sys
import threading

from pyftpdlib import handlers
from pyftpdlib.authorizers import DummyAuthorizer
from pyftpdlib.filesystems import AbstractedFS
from pyftpdlib.log import config_logging
from pyftpdlib.servers import FTPServer

folder, options = pathlib.Path(sys.argv[1]), sys.argv[2:]
encoding = "gbk" if "gbk" in options else "utf8"
known_rules, counts = None, {}


def rules():
    """Verb of the rule and its words; a change of the file begins all counts anew."""
    global known_rules
    path = folder / "rules"
    text = path.read_text() if path.exists() else ""
    if text != known_rules:
        known_rules = text
        counts.clear()
    return [line.split() for line in text.splitlines()]


def number(rule):
    return next((int(words[1]) for words in rules() if words[0] == rule), None)


class Data(handlers.ThrottledDTPHandler):
    def __init__(self, sock, channel):
        self.read_limit = self.write_limit = number("slow") or 0
        super().__init__(sock, channel)

    def handle_read(self):
        super().handle_read()
        self.stop_at(number("full"), self.tell_full)
        self.stop_at(number("cut"), self.cut_off)

    handle_read_event = handle_read

    def stop_at(self, limit, stop):
        if limit is not None and not self._closed and self.tot_bytes_received >= limit:
            stop()

    def tell_full(self):
        self._resp = ("552 No room left on the device.", handlers.logger.info)
        self.close()

    def cut_off(self):
        channel = self.cmd_channel
        self.close()
        channel.close()


class Commands:
    """What the server does otherwise than its library."""

    def decode(self, line):
        return line.decode(encoding, "replace")

    def push(self, text):
        handlers.asynchat.async_chat.push(self, text.encode(encoding))

    def pre_process_command(self, line, cmd, arg):
        with open(folder / "commands", "a") as log:
            log.write("PASS" if cmd == "PASS" else line)
            log.write("\n")
        for words in rules():
            if words[0] in ("refuse", "drop", "hang") and words[1] == cmd and self.misbehave(*words):
                return
        super().pre_process_command(line, cmd, arg)

    def misbehave(self, rule, verb, extent="0"):
        if rule == "refuse":
            self.respond(extent + " Refused as told.")
            return True
        if rule == "hang":
            return True
        counts[verb] = counts.get(verb, 0) + 1
        if int(extent) >= 0 and counts[verb] > int(extent):
            return False
        handlers.FTPHandler.close(self)
        return True

    def ftp_SIZE(self, path):
        if ["short", "SIZE"] in rules() and os.path.isfile(path):
            return self.respond("213 %d" % (os.path.getsize(path) - 1))
        return super().ftp_SIZE(path)

    def ftp_FEAT(self, line):
        if "gbk" not in options:
            return super().ftp_FEAT(line)
        self.push("211-Features:\r\n SIZE\r\n")
        self.respond("211 End")


class Files(AbstractedFS):
    def chdir(self, path):
        # The process itself stays where it is: a directory may be removed while it is in there.
        os.scandir(path).close()
        self.cwd = self.fs2ftp(path)

    def format_list(self, *arguments, **named):
        return (line.decode("utf8").encode(encoding) for line in super(Files, self).format_list(*arguments, **named))


def handler_class():
    if "tls" not in options:
        return type("Handler", (Commands, handlers.FTPHandler), {"dtp_handler": Data})
    certificate = str(folder / "certificate.pem")
    data = type("SecureData", (handlers.SSLConnection, Data), {
        "__init__": secure_data, "readable": may_read, "use_sendfile": lambda self: False,
        "handle_failed_ssl_handshake": handlers.TLS_DTPHandler.handle_failed_ssl_handshake})
    return type("Handler", (Commands, handlers.TLS_FTPHandler), {"dtp_handler": data, "certfile": certificate})


def secure_data(self, sock, channel):
    handlers.SSLConnection.__init__(self, sock, channel)
    if channel._prot:
        self.secure_connection(channel.ssl_context)


def may_read(self):
    """The library closes a channel that hears of a handshake before it is told what to transfer."""
    return self._ssl_accepting or handlers.SSLConnection.readable(self)


def end_with_input():
    sys.stdin.read()
    os._exit(0)


def main():
    config_logging(level=50)
    (folder / "files").mkdir(exist_ok=True)
    users = DummyAuthorizer()
    for name, password in (("归档@x:y", "p:w@/%41 字"), ("plain", "p:w@/%41")):
        users.add_user(name, password, str(folder / "files"), perm="elradfmwMT")
    handler = handler_class()
    handler.authorizer = users
    handler.timeout = next((float(o[5:]) for o in options if o.startswith("idle=")), 300)
    handler.auth_failed_timeout = 0
    handler.proto_cmds = dict(handler.proto_cmds)
    if "list" in options or "gbk" in options:
        for verb in ("MLST", "MLSD"):
            handler.proto_cmds.pop(verb)
    handler.abstracted_fs = Files
    server = FTPServer(("127.0.0.1", 0), handler)
    threading.Thread(target=end_with_input, daemon=True).start()
    print(server.address[1], flush=True)
    server.serve_forever()


main()
