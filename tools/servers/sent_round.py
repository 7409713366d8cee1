"""A round as the host sent it."""

import re

PLAYERS = range(1, 17)
YEAR = 2405  # of the sample host file


class SentRound:
    """What each player of one round has to get, read from the folder that the round left behind."""

    def __init__(self, folder):
        self.folder = folder
        number = folder.name.removeprefix("round-")
        self._game_name = f"Round {number}"
        self._subject, _, self._body = (folder / "message.txt").read_text().partition("\n")

    def _expand(self, text, player):
        values = {
            "<<GN>>": self._game_name,
            "<<PN>>": str(player),
            "<<FN>>": f"Captain{player}",
            "<<GY>>": str(YEAR),
        }
        return re.sub("<<..>>", lambda found: values[found[0]], text)

    def subject(self, player):
        return self._expand(self._subject, player)

    def body(self, player):
        """Lines of the text before the attachments, without the empty lines at its end."""
        return self._expand(self._body, player).rstrip("\n").split("\n")

    def files(self, player):
        """Names and bytes in sending order."""
        names = [f"GAME.M{player}", "GAME.XY"] + [f"extra {i}.dat" for i in (1, 2, 3)]
        return [(name, (self.folder / name).read_bytes()) for name in names]

    def report(self, player):
        """What the program said about the player."""
        text = (self.folder / "report.txt").read_text()
        found = re.search(rf"^Player {player}: (.*)$", text, re.MULTILINE)
        return found[1] if found else "nothing"


def address(player):
    return f"p{player}@example.org"


def to_line(player):
    return f"Captain{player} Of Many <{address(player)}>"
