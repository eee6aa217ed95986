library Exporter;

uses
  SysUtils,
  Core in 'Core.pas';

type
  THandle = Integer;

{$R *.RES}

function OpenStore(Name: PChar): THandle; stdcall; export;
begin
  Result := Core.Open(StrPas(Name));
end;

procedure CloseStore(Handle: THandle); stdcall;
begin
  Core.Close(Handle);
end;

procedure Reserved;
begin
end;

exports
  OpenStore index 1 name 'OpenStoreA',
  CloseStore name 'CloseStoreA' resident,
  Reserved;

begin
  IsMultiThread := True;
end.
