// A source whose test is in the corresponding test folder.
