"""What each library drags along, as it was built. Usage: test_libraries.py DATA UI SCRIPTING"""

import subprocess
import sys
import unittest

DATA, UI, SCRIPTING = sys.argv[-3:]
del sys.argv[-3:]


def needed(library):
    """The names of all libraries that the loader would take along."""
    lines = subprocess.run(["ldd", library], check=True, capture_output=True, text=True).stdout.splitlines()
    return " ".join(line.split()[0] for line in lines)


class Libraries(unittest.TestCase):
    def test_data_knows_no_windows_and_no_python(self):
        self.assertIn("libQt5Core", needed(DATA))
        self.assertNotRegex(needed(DATA), "libQt5Widgets|libQt5Svg|libpython|libboost_python|strativo_ui")

    def test_windows_know_no_python(self):
        self.assertRegex(needed(UI), "libstrativo_data.* libQt5Widgets|libQt5Widgets.* libstrativo_data")
        self.assertNotRegex(needed(UI), "libpython|libboost_python")

    def test_scripts_get_values_and_data_without_windows(self):
        self.assertRegex(needed(SCRIPTING), "libpython")
        self.assertNotRegex(needed(SCRIPTING), "libQt5Widgets|libQt5Svg|strativo_ui")


if __name__ == "__main__":
    unittest.main()
