"""The simulated indicator, as a test works it."""

import os
import re
import subprocess

from operator_at_work import expect


class Indicator:
    def __init__(self, folder, *arguments):
        self.process = subprocess.Popen(
            [os.path.join(folder, "varno-indicator"), *arguments],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, bufsize=1,
        )
        self.port = self.hear(r"COM(\d+)").group(1)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.stdin.close()
        self.process.terminate()
        self.process.wait()

    def tell(self, command):
        self.process.stdin.write(command + "\n")

    def hear(self, pattern):
        """Waits for a line that holds the pattern; a silent indicator ends the test by its limit."""
        said = []
        while True:
            line = self.process.stdout.readline()
            expect(line, f"the indicator never said {pattern!r}, but: {said}")
            said.append(line)
            found = re.search(pattern, line)
            if found:
                return found
