// A source whose test is in the wrong test folder.
