{$IFDEF A}{$R+}{$R a.res}(*$I inc*){$DEFINE b
}{$Q+,R- x}{$}