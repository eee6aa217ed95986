library Shared;

uses SysUtils;

const
  One = 1;

function Get: Integer; stdcall; export;
begin
  Get := One
end;

exports
  Get;

begin
end.
